#include "NavigationItem.h"

void NavigationItem::setTitle(const QString& title) {
    m_title = title;
    Q_EMIT changed();
}

void NavigationItem::setPrompt(const QString& prompt) {
    m_prompt = prompt;
    Q_EMIT changed();
}

void NavigationItem::setTitleView(View* view) {
    m_titleView = view;
    Q_EMIT changed();
}

BarButtonItem* NavigationItem::addRightBarButtonItem(const QString& title,
                                                     std::function<void()> action) {
    auto* item = new BarButtonItem(this, title, std::move(action));
    addRightBarButtonItem(item);
    return item;
}

void NavigationItem::addRightBarButtonItem(BarButtonItem* item) {
    m_rightBarButtonItems.append(item);
    Q_EMIT changed();
}

void NavigationItem::setBackBarButtonItem(BarButtonItem* item) {
    m_backBarButtonItem = item;
    Q_EMIT changed();
}
