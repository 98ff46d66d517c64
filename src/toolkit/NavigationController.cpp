#include "NavigationController.h"

#include "toolkit/AlertController.h"

#include <algorithm>

NavigationController::NavigationController(std::unique_ptr<ViewController> rootViewController) {
    setContainer(*rootViewController, this);
    m_stack.push_back(std::move(rootViewController));
}

NavigationController::~NavigationController() = default;

void NavigationController::viewDidLoad() {
    topViewController()->loadViewIfNeeded();
}

void NavigationController::viewWillAppear() {
    topViewController()->viewWillAppear();
}

void NavigationController::viewDidAppear() {
    m_visible = true;
    topViewController()->viewDidAppear();
}

void NavigationController::viewWillDisappear() {
    topViewController()->viewWillDisappear();
}

void NavigationController::viewDidDisappear() {
    m_visible = false;
    topViewController()->viewDidDisappear();
}

bool NavigationController::hasUnsavedChanges() const {
    return std::ranges::any_of(m_stack, [](const auto& held) { return held->hasUnsavedChanges(); });
}

QList<ViewController*> NavigationController::viewControllers() const {
    QList<ViewController*> controllers;
    for (const auto& controller : m_stack)
        controllers.append(controller.get());
    return controllers;
}

ViewController* NavigationController::viewControllerAt(int index) const {
    return m_stack.at(std::size_t(index)).get();
}

void NavigationController::pushViewController(std::unique_ptr<ViewController> controller) {
    ViewController* below = topViewController();
    ViewController* above = controller.get();
    below->endEditing();
    setContainer(*above, this);
    above->loadViewIfNeeded();
    if (m_visible) {
        below->viewWillDisappear();
        above->viewWillAppear();
    }
    m_stack.push_back(std::move(controller));
    Q_EMIT pushed(above);
    Q_EMIT stackChanged();
    if (m_visible) {
        below->viewDidDisappear();
        above->viewDidAppear();
    }
}

void NavigationController::goBack() {
    // What is presented belongs to the top screen, and ends before it.
    if (root().presentedViewController())
        return;
    const bool pops = m_stack.size() > 1;
    BarButtonItem* own = topViewController()->navigationItem()->backBarButtonItem();
    if (!pops && !own)
        return;
    const auto leave = [this, pops, own] {
        if (pops)
            popToViewController(*m_stack.at(m_stack.size() - 2));
        else
            own->press();
    };
    // The own way back of a stack's first screen leaves the stacks beside it too.
    const ViewController* leaving = pops ? topViewController() : container() ? container() : this;
    if (leaving->hasUnsavedChanges() && !leaving->handsChangesBack())
        askToDiscardChanges(*this, leave);
    else
        leave();
}

void NavigationController::popToViewController(ViewController& controller) {
    ViewController* above = topViewController();
    const auto held = std::find_if(m_stack.begin(), m_stack.end(), [&](const auto& candidate) {
        return candidate.get() == &controller;
    });
    if (above == &controller || held == m_stack.end())
        return;
    above->endEditing();
    controller.loadViewIfNeeded();
    if (m_visible) {
        above->viewWillDisappear();
        controller.viewWillAppear();
    }
    std::move(held + 1, m_stack.end(), std::back_inserter(m_leaving));
    m_stack.erase(held + 1, m_stack.end());
    Q_EMIT popped(&controller);
    Q_EMIT stackChanged();
    if (m_visible) {
        above->viewDidDisappear();
        controller.viewDidAppear();
    }
    if (!m_animated)
        finishTransition();
}

void NavigationController::setNavigationBarHidden(bool hidden) {
    if (hidden == m_navigationBarHidden)
        return;
    m_navigationBarHidden = hidden;
    Q_EMIT navigationBarHiddenChanged();
}

void NavigationController::finishTransition() {
    // A screen that unwinds by its own action is still running it.
    for (auto& controller : m_leaving)
        controller.release()->deleteLater();
    m_leaving.clear();
}
