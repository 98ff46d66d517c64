#include "Storyboard.h"

#include "foundation/FatalError.h"
#include "toolkit/AlertController.h"
#include "toolkit/NavigationController.h"
#include "toolkit/TabBarController.h"

#include <QMetaObject>

#include <algorithm>
#include <ranges>

namespace {

bool hasUnwindAction(const ViewController& controller, const QString& action) {
    const QByteArray signature = action.toUtf8() + "(Segue*)";
    return controller.metaObject()->indexOfMethod(signature.constData()) >= 0;
}

ViewController* nearestIn(const NavigationController& navigation, const QString& action,
                          const ViewController* below);

// A tab bar's own stacks, the selected one first.
ViewController* nearestIn(const TabBarController& tabs, const QString& action) {
    if (ViewController* found = nearestIn(*tabs.selectedViewController(), action, nullptr))
        return found;
    for (const NavigationController* navigation : tabs.viewControllers()) {
        if (ViewController* found = nearestIn(*navigation, action, nullptr))
            return found;
    }
    return nullptr;
}

// The nearest screen of a stack that has the action, from the top or from below a given one.
ViewController* nearestIn(const NavigationController& navigation, const QString& action,
                          const ViewController* below) {
    QList<ViewController*> stack = navigation.viewControllers();
    if (below) // which is not in the stack any more while it leaves
        stack.resize(std::max<qsizetype>(0, stack.indexOf(below)));
    for (ViewController* controller : std::ranges::reverse_view(stack)) {
        if (hasUnwindAction(*controller, action))
            return controller;
        if (const auto* tabs = qobject_cast<TabBarController*>(controller)) {
            if (ViewController* found = nearestIn(*tabs, action))
                return found;
        }
    }
    return nullptr;
}

ViewController* unwindDestination(const ViewController& source, const QString& action) {
    const ViewController* leaving = &source;
    for (ViewController* holder = source.container(); holder; holder = holder->container()) {
        ViewController* found = nullptr;
        if (const auto* navigation = qobject_cast<NavigationController*>(holder))
            found = nearestIn(*navigation, action, leaving);
        else if (const auto* tabs = qobject_cast<TabBarController*>(holder))
            found = nearestIn(*tabs, action);
        if (found)
            return found;
        leaving = holder;
    }
    return nullptr;
}

/** Whether the way back to a screen leaves another than its source with changes. */
bool losesChanges(const ViewController& source, const ViewController& destination) {
    const ViewController* shown = &destination;
    for (const ViewController* holder = shown->container(); holder; holder = holder->container()) {
        if (const auto* navigation = qobject_cast<const NavigationController*>(holder)) {
            const auto stack = navigation->viewControllers();
            const auto above = std::ranges::find(stack, shown);
            const bool loses =
                std::any_of(above + 1, stack.end(), [&source](const ViewController* leaving) {
                    return leaving != &source && leaving->hasUnsavedChanges();
                });
            if (loses)
                return true;
        }
        shown = holder;
    }
    return false;
}

void reveal(ViewController& destination) {
    ViewController* shown = &destination;
    for (ViewController* holder = shown->container(); holder; holder = holder->container()) {
        if (auto* navigation = qobject_cast<NavigationController*>(holder))
            navigation->popToViewController(*shown);
        else if (auto* tabs = qobject_cast<TabBarController*>(holder))
            tabs->select(*qobject_cast<NavigationController*>(shown));
        shown = holder;
    }
}

} // namespace

void Storyboard::add(const Scene& scene) {
    m_scenes.insert_or_assign(scene.identifier, scene);
}

const Scene* Storyboard::scene(const QString& identifier) const {
    const auto found = m_scenes.find(identifier);
    return found == m_scenes.end() ? nullptr : &found->second;
}

std::unique_ptr<ViewController> Storyboard::instantiate(const QString& identifier) {
    const Scene* described = scene(identifier);
    if (!described)
        fatalError(QStringLiteral("No scene is called \"%1\"").arg(identifier));
    auto controller = described->make();
    controller->m_storyboard = this;
    controller->m_scene = described;
    if (!described->title.isEmpty())
        controller->setTitle(described->title);
    if (described->wire)
        described->wire(*controller);
    return controller;
}

void Storyboard::perform(const QString& identifier, ViewController& source, QObject* sender) {
    const QList<SegueDescription>& segues = source.scene()->segues;
    const auto segue = std::find_if(segues.begin(), segues.end(), [&](const auto& candidate) {
        return candidate.identifier == identifier;
    });
    if (segue == segues.end())
        fatalError(QStringLiteral("The scene \"%1\" has no segue \"%2\"")
                       .arg(source.scene()->identifier, identifier));

    if (segue->kind == SegueDescription::Kind::Show) {
        auto destination = instantiate(segue->target);
        Segue step(identifier, source, *destination);
        source.prepareForSegue(step, sender);
        if (NavigationController* navigation = source.navigationController())
            navigation->pushViewController(std::move(destination));
        return;
    }
    ViewController* destination = unwindDestination(source, segue->target);
    if (!destination)
        return;
    const auto unwind = [identifier, action = segue->target.toUtf8(), &source, destination,
                         sender] {
        Segue step(identifier, source, *destination);
        source.prepareForSegue(step, sender);
        QMetaObject::invokeMethod(destination, action.constData(), Qt::DirectConnection,
                                  Q_ARG(Segue*, &step));
        reveal(*destination);
    };
    if (losesChanges(source, *destination))
        askToDiscardChanges(source, unwind);
    else
        unwind();
}
