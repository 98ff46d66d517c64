#pragma once

#include "toolkit/NavigationController.h"

#include <QStringList>

#include <memory>
#include <vector>

/** Screens side by side, each a navigation stack of its own, of which one shows. */
class TabBarController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(QStringList titles READ titles CONSTANT)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged)

public:
    /** Each tab has the title of its stack's first screen. */
    explicit TabBarController(std::vector<std::unique_ptr<NavigationController>> viewControllers);
    ~TabBarController() override;

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewWillDisappear() override;
    void viewDidDisappear() override;
    bool hasUnsavedChanges() const override;

    QList<NavigationController*> viewControllers() const;
    Q_INVOKABLE NavigationController* viewControllerAt(int index) const;
    NavigationController* selectedViewController() const;
    QStringList titles() const;
    int selectedIndex() const { return m_selectedIndex; }

    Q_INVOKABLE void choose(int index);
    void select(const NavigationController& navigation);

Q_SIGNALS:
    void selectedIndexChanged();

private:
    std::vector<std::unique_ptr<NavigationController>> m_viewControllers;
    int m_selectedIndex = 0;
    bool m_visible = false;
};
