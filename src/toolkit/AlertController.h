#pragma once

#include "toolkit/ViewController.h"

#include <QStringList>

#include <functional>
#include <vector>

/** A short message over the screen, with actions to choose from. */
class AlertController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Controllers make their alerts")
    Q_PROPERTY(QString message READ message CONSTANT)
    Q_PROPERTY(QString heading READ title CONSTANT)
    Q_PROPERTY(QStringList actionTitles READ actionTitles CONSTANT)
    Q_PROPERTY(int cancelAction READ cancelAction CONSTANT)
    Q_PROPERTY(int destructiveAction READ destructiveAction CONSTANT)

public:
    AlertController(const QString& title, const QString& message);

    QString message() const { return m_message; }
    QStringList actionTitles() const;
    enum class Style { Default, Cancel, Destructive };

    /** The handler, which may be absent, runs after the alert has gone. */
    void addAction(const QString& title, std::function<void()> handler = nullptr,
                   Style style = Style::Default);
    /** What Escape chooses: the action of that style, or the only one; -1 when there is none. */
    int cancelAction() const;
    /** What takes something away; -1 when there is no such action. */
    int destructiveAction() const { return actionOf(Style::Destructive); }

    Q_INVOKABLE void choose(int action);

private:
    struct Action {
        QString title;
        std::function<void()> handler;
        Style style = Style::Default;
    };

    int actionOf(Style style) const; ///< -1 when there is none

    QString m_message;
    std::vector<Action> m_actions;
};

/** Presents an alert with the one action "OK"; false when something is presented already. */
bool presentAlert(ViewController& presenting, const QString& title, const QString& message,
                  std::function<void()> handler = nullptr);

/** Asks whether to leave what the user has entered unsaved; false when something is presented
 * already. */
bool askToDiscardChanges(ViewController& presenting, std::function<void()> discard);
