#include "ViewController.h"

#include "foundation/FatalError.h"
#include "toolkit/Button.h"
#include "toolkit/NavigationController.h"
#include "toolkit/Storyboard.h"
#include "toolkit/TextInput.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcToolkit, "lantern.toolkit")

namespace {

template <class Control>
QList<QObject*> controlsOf(const ViewController& screen) {
    const auto controls = screen.findChildren<Control*>(Qt::FindDirectChildrenOnly);
    return {controls.begin(), controls.end()};
}

QStringList textsOf(const ViewController& screen) {
    QStringList texts;
    for (const TextInput* input : screen.findChildren<TextInput*>(Qt::FindDirectChildrenOnly))
        texts.append(input->text());
    return texts;
}

} // namespace

Segue::Segue(const QString& identifier, ViewController& source, ViewController& destination)
    : m_identifier(identifier)
    , m_source(source)
    , m_destination(destination) {}

void ViewController::prepareForSegue(Segue& /*segue*/, QObject* /*sender*/) {}

void ViewController::loadViewIfNeeded() {
    if (m_viewLoaded)
        return;
    m_viewLoaded = true;
    viewDidLoad();
}

void ViewController::endEditing() {
    for (TextInput* input : findChildren<TextInput*>())
        input->endEditing();
}

bool ViewController::hasUnsavedChanges() const {
    return m_savedTexts && *m_savedTexts != textsOf(*this);
}

void ViewController::noteSaved() {
    m_savedTexts = textsOf(*this);
}

void ViewController::performSegue(const QString& identifier, QObject* sender) {
    Q_EMIT segueRequested(identifier);
    if (m_storyboard)
        m_storyboard->perform(identifier, *this, sender);
}

ViewController& ViewController::root() {
    ViewController* controller = this;
    while (controller->m_container)
        controller = controller->m_container;
    return *controller;
}

bool ViewController::present(std::unique_ptr<ViewController> controller) {
    ViewController& presenting = root();
    if (presenting.m_presented) {
        qCWarning(lcToolkit) << "something is presented already; not shown:" << controller->title();
        return false;
    }
    endEditing();
    controller->loadViewIfNeeded();
    setContainer(*controller, &presenting);
    presenting.m_presented = std::move(controller);
    Q_EMIT presenting.presentedViewControllerChanged();
    return true;
}

void ViewController::dismiss() {
    ViewController& presenting = root();
    if (!presenting.m_presented)
        return;
    // The call may come from the presented controller itself.
    presenting.m_presented.release()->deleteLater();
    Q_EMIT presenting.presentedViewControllerChanged();
}

NavigationController* ViewController::navigationController() const {
    for (ViewController* holder = m_container; holder; holder = holder->m_container) {
        if (auto* navigation = qobject_cast<NavigationController*>(holder))
            return navigation;
    }
    return nullptr;
}

QList<QObject*> ViewController::textFields() const {
    return controlsOf<TextField>(*this);
}

QList<QObject*> ViewController::buttons() const {
    return controlsOf<Button>(*this);
}

QString ViewController::restorationIdentifier() const {
    return m_scene ? m_scene->identifier : QString();
}

QString ViewController::viewName() const {
    return m_scene ? m_scene->view : QString();
}
