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

private:
    std::unique_ptr<ViewController> m_root;
};
