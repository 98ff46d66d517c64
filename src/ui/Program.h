#pragma once

#include "app/AppDelegate.h"
#include "foundation/FatalError.h"
#include "foundation/TemporaryFolder.h"
#include "store/ProcessLock.h"
#include "toolkit/Appearance.h"
#include "toolkit/Storyboard.h"
#include "ui/WindowPlace.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>

#include <memory>
#include <optional>
#include <variant>

/** Where a program keeps what it must not lose. */
struct ProgramPaths {
    QString storeFolder;
    QString settingsFile;
    QString problem = {}; ///< why there can be no such files, where that is so

    /** The user's data and configuration folders. */
    static ProgramPaths ofThisUser();
};

/** The running program: its services, its screens and its window. */
class Program {
public:
    Program(const ProgramPaths& paths, Environment environment, Platform& platform);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /** Whether another process has the store. */
    bool isOpenElsewhere() const;
    /** Opens the window and shows the first screen in it; false when the window cannot be made. A
     * store that is open elsewhere is a fatal error. */
    bool launch();

    /** Shows the import screen with this file loaded, as if the user had chosen it there. */
    void openCollectionFile(const QUrl& file);

    QQuickWindow& quickWindow() const { return *m_quickWindow; }
    AppDelegate& application() { return m_application; }
    /** How all views look, whenever it changes. */
    Appearance& appearance() { return m_appearance; }
    NavigationController& navigation();
    QQmlApplicationEngine& engine() { return m_engine; }

private:
    void showFatalError(const FatalError& error);
    bool isStoreDamaged();
    /** What is true of this end; what no store takes is written to a file. */
    QString whatIsKept();
    QString shownDay(const QString& day) const;
    QString waitForChoice();
    /** Puts what came of a choice in the place of the message. */
    void tell(const QString& outcome);
    QString restored(const QString& day);
    QString rescued();

    /** Taken before the store is opened, so that a second start is noticed at once. */
    std::variant<std::shared_ptr<ProcessLock>, int> m_lock;
    Environment m_environment;
    UserDefaults m_userDefaults;
    EventLoopMainQueue m_mainQueue;
    TemporaryFolder m_temporaryFolder;
    FatalErrorCleanup m_temporaryFolderRemoval;
    Keyboard m_keyboard;
    Notes m_notes;
    LongWork m_longWork{m_mainQueue};
    Appearance m_appearance;
    ClassRuntime m_classes;
    SelectionValues m_selection;
    AppDelegate m_application;
    Storyboard m_storyboard;
    QQmlApplicationEngine m_engine;
    QQuickWindow* m_quickWindow = nullptr;
    std::optional<WindowPlace> m_windowPlace; ///< until the window goes
    QString m_problem;                        // to be told of in the window
};
