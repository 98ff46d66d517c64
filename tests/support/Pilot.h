#pragma once

#include <QImage>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

#include <functional>

/**
 * Uses the running program as a person would: finds controls by their accessible names, taps,
 * swipes and types, and looks at the window. What cannot be found throws std::runtime_error.
 */
class Pilot {
public:
    explicit Pilot(QQuickWindow& window);

    /** The visible control of this name that was shown last; null when none is. */
    QQuickItem* look(const QString& name) const;
    /** The same, waiting up to two seconds for it. */
    QQuickItem& find(const QString& name) const;
    /** The list of rows that is shown. */
    QQuickItem& list() const;
    /** All visible controls whose names start so, from top to bottom. */
    QList<QQuickItem*> findAll(const QString& start) const;
    /** Where the window shows a text, if only a part of it; empty when it does not. */
    QRect placeOf(const QString& text) const;
    /** Whether a control has the keyboard. */
    bool hasFocus(const QString& name) const;

    void tap(const QString& name);
    void tap(const QQuickItem& item, Qt::MouseButton button = Qt::LeftButton);
    void doubleClick(const QString& name);
    /** Scrolls the page that holds an item until the window shows it. */
    void scrollTo(const QQuickItem& item) const;
    /** Drags over an item from its middle, by so many points. */
    void drag(const QQuickItem& item, QPoint by);
    /** Drags from a place in the window. */
    void drag(QPoint from, QPoint by);
    void type(const QString& text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /** Presses a key until it has repeated some times. */
    void hold(Qt::Key key);
    /** Presses Tab until a control has the keyboard. */
    void tabTo(const QString& name) { tabTo(name, Qt::Key_Tab); }
    /** The same with Shift+Tab. */
    void tabBackTo(const QString& name) { tabTo(name, Qt::Key_Backtab); }

    /** Lets the event loop turn until this holds; false after the time in milliseconds. */
    static bool waitFor(const std::function<bool()>& condition, int timeout = 2000);
    /** Lets animations come to their end, and screens take presses. */
    void settle() const;

    QImage grab() const;
    void resize(QSize size);

private:
    void tabTo(const QString& name, Qt::Key key);

    QQuickWindow& m_window;
};
