#pragma once

#include "toolkit/NavigationItem.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <memory>
#include <optional>

class NavigationController;
class Storyboard;
class ViewController;
struct Scene;

/** A way from one screen to another. An unwind segue's destination is the screen gone back to. */
class Segue : public QObject {
    Q_OBJECT

public:
    Segue(const QString& identifier, ViewController& source, ViewController& destination);

    QString identifier() const { return m_identifier; }
    ViewController& source() const { return m_source; }
    ViewController& destination() const { return m_destination; }

private:
    QString m_identifier;
    ViewController& m_source;
    ViewController& m_destination;
};

/**
 * One screen. Loads once, before it is first shown; then appears and disappears as navigation and
 * tabs show and cover it. Of two screens that change places, the one that leaves is told first.
 */
class ViewController : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(QString viewName READ viewName CONSTANT)
    Q_PROPERTY(NavigationItem* navigationItem READ navigationItem CONSTANT)
    Q_PROPERTY(QList<QObject*> textFields READ textFields CONSTANT)
    Q_PROPERTY(QList<QObject*> buttons READ buttons CONSTANT)
    Q_PROPERTY(ViewController* presentedViewController READ presentedViewController NOTIFY
                   presentedViewControllerChanged)

public:
    ViewController() = default;

    virtual void viewDidLoad() {}
    virtual void viewWillAppear() {}
    virtual void viewDidAppear() {}
    virtual void viewWillDisappear() {}
    virtual void viewDidDisappear() {}
    /** Called before every segue out of this screen, unwinding ones too. */
    virtual void prepareForSegue(Segue& segue, QObject* sender);

    /** A touch of the screen beside all of its controls. */
    Q_INVOKABLE virtual void touchesBegan() {}

    void loadViewIfNeeded();
    /** Ends the editing of every text input of this screen. */
    Q_INVOKABLE void endEditing();

    /** Whether the user has entered what leaving this screen, and what it holds, would lose. */
    virtual bool hasUnsavedChanges() const;
    /** Whether the screen below takes over what was entered on this one. */
    virtual bool handsChangesBack() const { return false; }

    /** Follows the segue of this identifier in the screen's scene. A scene without it is a fatal
     * error; an unwind segue whose action no screen below has does nothing. */
    void performSegue(const QString& identifier, QObject* sender);

    /** Shows a controller over the whole window; one that is shown already stays alone, and the
     * answer is false. */
    bool present(std::unique_ptr<ViewController> controller);
    /** Takes away what this screen, or the one that holds it, presents. */
    Q_INVOKABLE void dismiss();
    ViewController* presentedViewController() const { return m_presented.get(); }

    QString title() const { return m_navigationItem.title(); }
    void setTitle(const QString& title) { m_navigationItem.setTitle(title); }
    NavigationItem* navigationItem() { return &m_navigationItem; }

    /** The navigation or tab bar controller that holds this one; null at the root. */
    ViewController* container() const { return m_container; }
    NavigationController* navigationController() const;

    const Scene* scene() const { return m_scene; }
    /** What made this screen; null for a screen that nothing made. */
    Storyboard* storyboard() const { return m_storyboard; }
    /** The controls of this screen, in the order in which it made them. */
    QList<QObject*> textFields() const;
    QList<QObject*> buttons() const;
    /** Which screen this is, for telling whether two are of one kind. */
    QString restorationIdentifier() const;
    /** The name of the view that shows this screen. */
    QString viewName() const;

Q_SIGNALS:
    void segueRequested(const QString& identifier);
    void presentedViewControllerChanged();

protected:
    /** From now on, what the text inputs hold counts as entered where it differs from what they
     * hold now. */
    void noteSaved();

    /** Containers set this on what they hold. As its child in Qt's sense too, a controller that a
     * view has asked for is not taken for the view's own. */
    static void setContainer(ViewController& child, ViewController* container) {
        child.m_container = container;
        child.setParent(container);
    }

    /** The outermost controller that holds this one, or this one itself. */
    ViewController& root();

private:
    friend class Storyboard;

    NavigationItem m_navigationItem;
    ViewController* m_container = nullptr;
    Storyboard* m_storyboard = nullptr;
    const Scene* m_scene = nullptr;
    bool m_viewLoaded = false;
    std::optional<QStringList> m_savedTexts;
    std::unique_ptr<ViewController> m_presented;
};
