#include "Pilot.h"

#include <QTest>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr int longestAnimation = 450; // milliseconds
/** Of the event loop, of 10 ms each, in which nothing is drawn. */
constexpr int turnsOfRest = 8;

/** By which assistive technology calls an item; empty where it knows none. */
QString nameOf(const QQuickItem& item) {
    // Of two descriptions, the first is one that a control made before it was QML's.
    const QObject* description = nullptr;
    for (const QObject* child : item.children()) {
        if (child->inherits("QQuickAccessibleAttached"))
            description = child;
    }
    if (!description || description->property("ignored").toBool())
        return {};
    return description->property("name").toString();
}

/** A row is called by its first line too. */
bool isCalled(const QQuickItem& item, const QString& name) {
    const QString known = nameOf(item);
    return known == name || (item.inherits("QQuickItemDelegate") && !known.isEmpty() &&
                             item.property("text") == name);
}

QPoint middle(const QQuickItem& item) {
    return item.mapToScene({item.width() / 2, item.height() / 2}).toPoint();
}

void collect(QQuickItem& item, const std::function<bool(const QQuickItem&)>& wanted,
             QList<QQuickItem*>& found) {
    if (!item.isVisible() || item.opacity() == 0)
        return;
    if (wanted(item))
        found.append(&item);
    for (QQuickItem* child : item.childItems())
        collect(*child, wanted, found);
}

} // namespace

Pilot::Pilot(QQuickWindow& window)
    : m_window(window) {}

QQuickItem* Pilot::look(const QString& name) const {
    QList<QQuickItem*> found;
    collect(
        *m_window.contentItem(), [&](const QQuickItem& item) { return isCalled(item, name); },
        found);
    return found.isEmpty() ? nullptr : found.constLast();
}

QQuickItem& Pilot::find(const QString& name) const {
    QQuickItem* item = nullptr;
    if (!waitFor([&] { return (item = look(name)) != nullptr; }))
        throw std::runtime_error("nothing in the window is called \"" + name.toStdString() + '"');
    return *item;
}

QQuickItem& Pilot::list() const {
    QList<QQuickItem*> found;
    waitFor([&] {
        collect(
            *m_window.contentItem(),
            [](const QQuickItem& item) { return item.inherits("QQuickListView"); }, found);
        return !found.isEmpty();
    });
    if (found.isEmpty())
        throw std::runtime_error("the window shows no list");
    return *found.constLast();
}

QList<QQuickItem*> Pilot::findAll(const QString& start) const {
    QList<QQuickItem*> found;
    collect(
        *m_window.contentItem(),
        [&](const QQuickItem& item) { return nameOf(item).startsWith(start); }, found);
    std::sort(found.begin(), found.end(), [](const QQuickItem* first, const QQuickItem* second) {
        return middle(*first).y() < middle(*second).y();
    });
    return found;
}

QRect Pilot::placeOf(const QString& text) const {
    QList<QQuickItem*> found;
    collect(
        *m_window.contentItem(),
        [&](const QQuickItem& item) { return item.property("text").toString().contains(text); },
        found);
    QRect place;
    for (const QQuickItem* item : found) {
        QRectF shown = item->mapRectToScene(item->boundingRect()) & QRectF({0, 0}, m_window.size());
        for (const QQuickItem* page = item->parentItem(); page; page = page->parentItem()) {
            if (page->clip())
                shown &= page->mapRectToScene(page->boundingRect());
        }
        if (!shown.isEmpty())
            place = shown.toRect();
    }
    return place;
}

bool Pilot::hasFocus(const QString& name) const {
    const QQuickItem* item = look(name);
    const QQuickItem* focused = m_window.activeFocusItem();
    return item && focused && (item == focused || item->isAncestorOf(focused));
}

void Pilot::tap(const QString& name) {
    tap(find(name));
}

void Pilot::scrollTo(const QQuickItem& item) const {
    for (QQuickItem* page = item.parentItem(); page; page = page->parentItem()) {
        const QVariant contentY = page->property("contentY");
        if (!contentY.isValid() || page->inherits("QQuickListView"))
            continue;
        const QRectF shown = page->mapRectToScene(page->boundingRect());
        const QRectF place = item.mapRectToScene(item.boundingRect());
        const double below = place.bottom() - std::min(shown.bottom(), double(m_window.height()));
        const double above = shown.top() - place.top();
        if (below > 0 || above > 0)
            page->setProperty("contentY",
                              contentY.toDouble() + (below > 0 ? below + 8 : -above - 8));
    }
}

void Pilot::tap(const QQuickItem& item, Qt::MouseButton button) {
    scrollTo(item);
    QTest::mouseClick(&m_window, button, {}, middle(item));
    settle();
}

void Pilot::doubleClick(const QString& name) {
    const QPoint place = middle(find(name));
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, place);
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, place, /*delay*/ 120);
    settle();
}

void Pilot::drag(const QQuickItem& item, QPoint by) {
    drag(middle(item), by);
}

void Pilot::drag(QPoint from, QPoint by) {
    constexpr int steps = 12;
    QTest::mousePress(&m_window, Qt::LeftButton, {}, from);
    for (int step = 1; step <= steps; ++step) {
        QTest::mouseMove(&m_window, from + by * step / steps, 16);
    }
    QTest::mouseMove(&m_window, from + by, 100); // a finger that rests does not flick
    QTest::mouseRelease(&m_window, Qt::LeftButton, {}, from + by);
    settle();
}

void Pilot::type(const QString& text) {
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, &m_window, Qt::Key_unknown, QString(character), {});
    QTest::qWait(50);
}

void Pilot::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&m_window, key, modifiers);
    settle();
}

void Pilot::hold(Qt::Key key) {
    constexpr int repeats = 5;
    for (int i = 0; i <= repeats; ++i) {
        QKeyEvent event(QEvent::KeyPress, key, {}, {}, /*autorep*/ i > 0);
        QCoreApplication::sendEvent(&m_window, &event);
    }
    QTest::keyRelease(&m_window, key);
    settle();
}

void Pilot::tabTo(const QString& name, Qt::Key key) {
    constexpr int mostControls = 60;
    for (int tabs = 0; !hasFocus(name); ++tabs) {
        if (tabs == mostControls)
            throw std::runtime_error("the keyboard does not come to \"" + name.toStdString() + '"');
        QTest::keyClick(&m_window, key);
        QTest::qWait(30); // in which the field that was left ends its editing
    }
    settle();
}

bool Pilot::waitFor(const std::function<bool()>& condition, int timeout) {
    return QTest::qWaitFor(condition, timeout);
}

void Pilot::settle() const {
    int turns = 0;
    const auto connection =
        QObject::connect(&m_window, &QQuickWindow::frameSwapped, [&] { turns = 0; });
    waitFor(
        [&] {
            QList<QQuickItem*> arriving;
            if (++turns <= turnsOfRest)
                return false;
            collect(
                *m_window.contentItem(),
                [](const QQuickItem& item) { return item.property("arriving").toBool(); },
                arriving);
            return arriving.isEmpty();
        },
        longestAnimation);
    QObject::disconnect(connection);
}

QImage Pilot::grab() const {
    return m_window.grabWindow();
}

void Pilot::resize(QSize size) {
    m_window.resize(size);
    settle();
}
