#pragma once

#include "toolkit/ViewController.h"

#include <memory>

/** The one window of the program, showing its root controller. */
class Window : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitWindow)
    QML_UNCREATABLE("The program makes its window")
    Q_PROPERTY(ViewController* rootViewController READ rootViewController CONSTANT)

public:
    explicit Window(std::unique_ptr<ViewController> rootViewController);

    ViewController* rootViewController() const { return m_root.get(); }
    /** Loads the root controller and lets it appear. */
    void makeKeyAndVisible();

    /** Whether the window may close. Where that would lose what the user has entered, it asks the
     * user, and closes when the user says so. */
    Q_INVOKABLE bool mayClose();

Q_SIGNALS:
    void closes();

private:
    bool m_discardsChanges = false;
    std::unique_ptr<ViewController> m_root;
};
