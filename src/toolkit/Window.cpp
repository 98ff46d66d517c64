#include "Window.h"

Window::Window(std::unique_ptr<ViewController> rootViewController)
    : m_root(std::move(rootViewController)) {}

void Window::makeKeyAndVisible() {
    m_root->loadViewIfNeeded();
    m_root->viewWillAppear();
    m_root->viewDidAppear();
}
