#include "AccessibleItem.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>
#include <array>

namespace {

/** What QML's Accessible says of an item; null where it says nothing. To ask by way of the QML
 * engine would make it. Of two, the first is one that a control made before it was QML's. */
QObject* descriptionOf(const QQuickItem& item) {
    const auto& children = item.children();
    const auto found = std::find_if(children.rbegin(), children.rend(), [](const QObject* child) {
        return child->inherits("QQuickAccessibleAttached");
    });
    return found != children.rend() ? *found : nullptr;
}

/** Qt Quick's own interface knows more of those. */
bool isTextItem(const QQuickItem& item) {
    return item.inherits("QQuickText") || item.inherits("QQuickTextInput") ||
           item.inherits("QQuickTextEdit");
}

/** Whether an item is one of its own for assistive technology, not a part of what holds it. */
bool isExposed(QQuickItem& item) {
    const QObject* description = descriptionOf(item);
    return description ? !description->property("ignored").toBool()
                       : QAccessible::queryAccessibleInterface(&item) != nullptr;
}

/** Whether an item can be seen but not reached: a screen that slides out of its stack, and what
 * says of itself that it is inert, as a window under a sheet does. */
bool isInert(const QQuickItem& item) {
    const QQuickItem* holder = item.parentItem();
    return item.property("inert").toBool() ||
           (holder && holder->inherits("QQuickStackView") &&
            holder->property("currentItem").value<QQuickItem*>() != &item);
}

bool isReachable(const QQuickItem& item) {
    const QQuickItem* holder = &item;
    while (holder && !isInert(*holder))
        holder = holder->parentItem();
    return !holder && item.isEnabled() && item.isVisible();
}

void addExposedChildren(const QQuickItem& item, QList<QQuickItem*>& found) {
    for (QQuickItem* child : item.childItems()) {
        if (!child->isVisible() || isInert(*child))
            continue;
        if (isExposed(*child))
            found.append(child);
        else
            addExposedChildren(*child, found);
    }
}

/** An item that is no text item. One that is a text for assistive technology has it in its property
 * "text", and is only read. */
class AccessibleItem final : public QAccessibleObject,
                             public QAccessibleActionInterface,
                             public QAccessibleTextInterface,
                             public QAccessibleValueInterface {
public:
    explicit AccessibleItem(QQuickItem& item)
        : QAccessibleObject(&item) {}

    QWindow* window() const override { return item() ? item()->window() : nullptr; }
    QRect rect() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override { return int(children().size()); }
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

    QString text(int start, int end) const override { return words().mid(start, end - start); }
    int characterCount() const override { return int(words().size()); }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    int selectionCount() const override { return 0; }
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    QRect characterRect(int /*offset*/) const override { return rect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    QString attributes(int /*offset*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

    QVariant currentValue() const override { return object()->property("value"); }
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override { return object()->property("to"); }
    QVariant minimumValue() const override { return object()->property("from"); }
    QVariant minimumStepSize() const override { return object()->property("stepSize"); }

private:
    QQuickItem* item() const { return qobject_cast<QQuickItem*>(object()); }
    QObject* description() const { return item() ? descriptionOf(*item()) : nullptr; }
    QList<QQuickItem*> children() const;
    QString words() const { return object()->property("text").toString(); }
    bool canBeWorked() const { return item() && isReachable(*item()); }
};

QRect AccessibleItem::rect() const {
    if (!window() || !item()->isVisible())
        return {};
    const QRectF inWindow = item()->mapRectToScene(QRectF(QPointF(), item()->size()));
    return {window()->mapToGlobal(inWindow.topLeft().toPoint()), inWindow.size().toSize()};
}

QAccessibleInterface* AccessibleItem::parent() const {
    if (!window())
        return nullptr;
    for (QQuickItem* holder = item()->parentItem(); holder; holder = holder->parentItem()) {
        if (holder == item()->window()->contentItem())
            break;
        if (isExposed(*holder))
            return QAccessible::queryAccessibleInterface(holder);
    }
    return QAccessible::queryAccessibleInterface(window());
}

QList<QQuickItem*> AccessibleItem::children() const {
    QList<QQuickItem*> found;
    if (!item() || isInert(*item()))
        return found;
    addExposedChildren(*item(), found);
    // A list makes its rows in the order in which they come to be seen.
    if (role() == QAccessible::List)
        std::ranges::stable_sort(found, {},
                                 [](const QQuickItem* row) { return row->mapToScene({}).y(); });
    return found;
}

QAccessibleInterface* AccessibleItem::child(int index) const {
    return QAccessible::queryAccessibleInterface(children().value(index));
}

int AccessibleItem::indexOfChild(const QAccessibleInterface* child) const {
    return int(children().indexOf(child->object()));
}

QAccessibleInterface* AccessibleItem::childAt(int x, int y) const {
    for (int index = childCount(); index-- > 0;) {
        QAccessibleInterface* candidate = child(index);
        if (!candidate)
            continue;
        if (QAccessibleInterface* inside = candidate->childAt(x, y))
            return inside;
        if (candidate->rect().contains(x, y))
            return candidate;
    }
    return nullptr;
}

QString AccessibleItem::text(QAccessible::Text kind) const {
    if (!description())
        return {};
    if (kind == QAccessible::Name)
        return description()->property("name").toString();
    if (kind == QAccessible::Description)
        return description()->property("description").toString();
    return kind == QAccessible::Value && role() == QAccessible::EditableText ? words() : QString();
}

QAccessible::Role AccessibleItem::role() const {
    return description() ? QAccessible::Role(description()->property("role").toInt())
                         : QAccessible::NoRole;
}

QAccessible::State AccessibleItem::state() const {
    QAccessible::State state;
    if (!description()) {
        state.invalid = true;
        return state;
    }
    const auto is = [this](const char* what) { return description()->property(what).toBool(); };
    state.multiLine = is("multiLine");
    state.checkable = is("checkable");
    state.checked = is("checked");
    state.pressed = is("pressed");
    state.readOnly = is("readOnly");
    state.selectable = is("selectable");
    state.selected = is("selected");
    state.disabled = !isReachable(*item());
    state.focusable = !state.disabled && (is("focusable") || item()->activeFocusOnTab());
    // A list has the keyboard for its current row.
    state.focused = item()->hasActiveFocus() || object()->property("current").toBool();
    state.invisible = !item()->isVisible() || qFuzzyIsNull(item()->opacity());
    state.offscreen =
        !window() || !QRect(window()->mapToGlobal(QPoint()), window()->size()).intersects(rect());
    return state;
}

void* AccessibleItem::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    if (type == QAccessible::ValueInterface && object()->property("value").isValid())
        return static_cast<QAccessibleValueInterface*>(this);
    if (type == QAccessible::TextInterface && role() == QAccessible::EditableText)
        return static_cast<QAccessibleTextInterface*>(this);
    return nullptr;
}

QStringList AccessibleItem::actionNames() const {
    QStringList names;
    switch (role()) {
    case QAccessible::PushButton:
    case QAccessible::RadioButton:
    case QAccessible::MenuItem:
    case QAccessible::ListItem:
    case QAccessible::PageTab:
        names = {pressAction()};
        break;
    case QAccessible::CheckBox:
        names = {toggleAction(), pressAction()};
        break;
    case QAccessible::SpinBox:
        names = {increaseAction(), decreaseAction()};
        break;
    default:
        break;
    }
    if (state().focusable)
        names.append(setFocusAction());
    return names;
}

void AccessibleItem::doAction(const QString& name) {
    struct Action {
        QString name;
        const char* signal; ///< of QML's Accessible
    };
    const std::array actions{
        Action{pressAction(), "pressAction"}, Action{toggleAction(), "toggleAction"},
        Action{increaseAction(), "increaseAction"}, Action{decreaseAction(), "decreaseAction"}};
    if (!canBeWorked() || !description())
        return;
    if (name == setFocusAction())
        item()->forceActiveFocus(Qt::TabFocusReason);
    const auto action = std::ranges::find(actions, name, &Action::name);
    // The bus has its answer before the action, which may lead to a page that waits for the user.
    if (action != actions.end())
        QMetaObject::invokeMethod(description(), action->signal, Qt::QueuedConnection);
}

void AccessibleItem::setCurrentValue(const QVariant& value) {
    if (canBeWorked())
        QMetaObject::invokeMethod(object(), "setValue", Q_ARG(double, value.toDouble()));
}

QAccessibleInterface* makeInterface(const QString& className, QObject* object) {
    auto* item = qobject_cast<QQuickItem*>(object);
    // Qt asks for each class of the object; the first answer holds.
    if (!item || isTextItem(*item) || className != QLatin1String(object->metaObject()->className()))
        return nullptr;
    const QObject* description = descriptionOf(*item);
    if (!description || description->property("ignored").toBool())
        return nullptr;
    return new AccessibleItem(*item);
}

} // namespace

void describeItemsToAssistiveTechnology() {
    QAccessible::installFactory(makeInterface);
}
