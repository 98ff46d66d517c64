#include "TabBarController.h"

#include <algorithm>

TabBarController::TabBarController(
    std::vector<std::unique_ptr<NavigationController>> viewControllers)
    : m_viewControllers(std::move(viewControllers)) {
    for (const auto& navigation : m_viewControllers)
        setContainer(*navigation, this);
}

TabBarController::~TabBarController() = default;

void TabBarController::viewDidLoad() {
    selectedViewController()->loadViewIfNeeded();
}

void TabBarController::viewWillAppear() {
    selectedViewController()->viewWillAppear();
}

void TabBarController::viewDidAppear() {
    m_visible = true;
    selectedViewController()->viewDidAppear();
}

void TabBarController::viewWillDisappear() {
    selectedViewController()->viewWillDisappear();
}

void TabBarController::viewDidDisappear() {
    m_visible = false;
    selectedViewController()->viewDidDisappear();
}

bool TabBarController::hasUnsavedChanges() const {
    return std::ranges::any_of(m_viewControllers,
                               [](const auto& tab) { return tab->hasUnsavedChanges(); });
}

QList<NavigationController*> TabBarController::viewControllers() const {
    QList<NavigationController*> controllers;
    for (const auto& navigation : m_viewControllers)
        controllers.append(navigation.get());
    return controllers;
}

NavigationController* TabBarController::viewControllerAt(int index) const {
    return m_viewControllers.at(std::size_t(index)).get();
}

NavigationController* TabBarController::selectedViewController() const {
    return viewControllerAt(m_selectedIndex);
}

QStringList TabBarController::titles() const {
    QStringList titles;
    for (const auto& navigation : m_viewControllers)
        titles.append(navigation->viewControllerAt(0)->title());
    return titles;
}

void TabBarController::choose(int index) {
    if (index == m_selectedIndex || index < 0 || index >= int(m_viewControllers.size()))
        return;
    NavigationController* leaving = selectedViewController();
    NavigationController* entering = viewControllerAt(index);
    leaving->topViewController()->endEditing();
    entering->loadViewIfNeeded();
    if (m_visible) {
        leaving->viewWillDisappear();
        entering->viewWillAppear();
    }
    m_selectedIndex = index;
    Q_EMIT selectedIndexChanged();
    if (m_visible) {
        leaving->viewDidDisappear();
        entering->viewDidAppear();
    }
}

void TabBarController::select(const NavigationController& navigation) {
    for (int index = 0; index < int(m_viewControllers.size()); ++index) {
        if (viewControllerAt(index) == &navigation)
            choose(index);
    }
}
