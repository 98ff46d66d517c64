#include "Window.h"

#include "toolkit/AlertController.h"

Window::Window(std::unique_ptr<ViewController> rootViewController)
    : m_root(std::move(rootViewController)) {}

void Window::makeKeyAndVisible() {
    m_root->loadViewIfNeeded();
    m_root->viewWillAppear();
    m_root->viewDidAppear();
}

bool Window::mayClose() {
    if (m_discardsChanges || !m_root->hasUnsavedChanges())
        return true;
    auto* question = qobject_cast<AlertController*>(m_root->presentedViewController());
    if (!question || question->destructiveAction() < 0)
        m_root->dismiss(); // what else is presented leaves no place for the question
    else
        return false;
    askToDiscardChanges(*m_root, [this] {
        m_discardsChanges = true;
        Q_EMIT closes();
    });
    return false;
}
