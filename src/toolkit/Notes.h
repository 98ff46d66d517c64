#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <vector>

/** Short notes at the window's bottom: that something has worked, where the screen shows nothing of
 * it, and what was taken away and can be brought back. They need no answer. */
class Notes : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one place for notes")
    Q_PROPERTY(QString undoable READ undoable NOTIFY undoableChanged)

public:
    using QObject::QObject;

    void say(const QString& text) { Q_EMIT said(text); }

    /** Tells what has gone, and for some seconds offers to undo it. */
    void offerUndo(const QString& text, std::function<void()> undo);
    /** What went last of that which can still be brought back; empty when nothing can. */
    QString undoable() const { return m_offers.empty() ? QString() : m_offers.back().text; }
    /** Brings back what went last; then what went before it is on offer. */
    Q_INVOKABLE void undo();
    /** Ends all offers. */
    Q_INVOKABLE void endUndo();

Q_SIGNALS:
    void said(const QString& text);
    void undoableChanged();
    void undone();

private:
    struct Offer {
        QString text;
        std::function<void()> undo;
    };

    std::vector<Offer> m_offers;
};
