#pragma once

#include "toolkit/BarButtonItem.h"
#include "toolkit/View.h"

#include <QList>

/** What the navigation bar shows while its controller is on top. */
class NavigationItem : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Controllers make their navigation items")
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString prompt READ prompt NOTIFY changed)
    Q_PROPERTY(View* titleView READ titleView NOTIFY changed)
    Q_PROPERTY(QList<QObject*> rightBarButtonItems READ rightBarButtonItems NOTIFY changed)
    Q_PROPERTY(BarButtonItem* backBarButtonItem READ backBarButtonItem NOTIFY changed)

public:
    using QObject::QObject;

    QString title() const { return m_title; }
    void setTitle(const QString& title);
    /** What the screen is about, below a title view; empty where the title says it. */
    QString prompt() const { return m_prompt; }
    void setPrompt(const QString& prompt);
    /** Stands in the place of the title; null where there is none. */
    View* titleView() const { return m_titleView; }
    void setTitleView(View* view);
    /** In reading order. */
    QList<QObject*> rightBarButtonItems() const { return m_rightBarButtonItems; }
    BarButtonItem* addRightBarButtonItem(const QString& title, std::function<void()> action);
    void addRightBarButtonItem(BarButtonItem* item);
    /** A way back that the first screen of a stack has of its own; null where it has none. */
    BarButtonItem* backBarButtonItem() const { return m_backBarButtonItem; }
    void setBackBarButtonItem(BarButtonItem* item);

Q_SIGNALS:
    void changed();

private:
    QString m_title;
    QString m_prompt;
    View* m_titleView = nullptr;
    QList<QObject*> m_rightBarButtonItems;
    BarButtonItem* m_backBarButtonItem = nullptr;
};
