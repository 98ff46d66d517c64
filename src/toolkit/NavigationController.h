#pragma once

#include "toolkit/ViewController.h"

#include <QList>

#include <memory>
#include <vector>

/** A stack of screens, of which the top one shows, below a navigation bar. */
class NavigationController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes its navigation controllers")
    Q_PROPERTY(ViewController* topViewController READ topViewController NOTIFY stackChanged)
    Q_PROPERTY(int depth READ depth NOTIFY stackChanged)
    Q_PROPERTY(
        bool navigationBarHidden READ isNavigationBarHidden NOTIFY navigationBarHiddenChanged)

public:
    explicit NavigationController(std::unique_ptr<ViewController> rootViewController);
    ~NavigationController() override;

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewWillDisappear() override;
    void viewDidDisappear() override;
    bool hasUnsavedChanges() const override;

    QList<ViewController*> viewControllers() const; ///< bottom first
    Q_INVOKABLE ViewController* viewControllerAt(int index) const;
    ViewController* topViewController() const { return m_stack.back().get(); }
    int depth() const { return int(m_stack.size()); }

    void pushViewController(std::unique_ptr<ViewController> controller);
    /** Back by one; at the bottom, the screen's own way back if it has one. Asks first where that
     * would lose what the user has entered. */
    Q_INVOKABLE void goBack();
    /** Pops all that stands above a screen of this stack. */
    void popToViewController(ViewController& controller);

    bool isNavigationBarHidden() const { return m_navigationBarHidden; }
    void setNavigationBarHidden(bool hidden);

    /** A view that animates keeps popped screens alive until it has called finishTransition. */
    Q_INVOKABLE void setAnimated(bool animated) { m_animated = animated; }
    Q_INVOKABLE void finishTransition();

Q_SIGNALS:
    void pushed(ViewController* controller);
    void popped(ViewController* controller);
    void stackChanged();
    void navigationBarHiddenChanged();

private:
    std::vector<std::unique_ptr<ViewController>> m_stack;
    std::vector<std::unique_ptr<ViewController>> m_leaving;
    bool m_visible = false;
    bool m_navigationBarHidden = false;
    bool m_animated = false;
};
