#pragma once

#include "app/AppDelegate.h"
#include "toolkit/Button.h"
#include "toolkit/ViewController.h"

#include <QStringList>

/** The first screen: a menu of the others. At the very first launch it rebuilds the lists of
 * source and author names from the quotes. */
class MainMenuViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(Button* menuButton READ menuButton CONSTANT)
    Q_PROPERTY(QList<QObject*> menuOptionsButton READ shownOptions CONSTANT)

public:
    explicit MainMenuViewController(AppDelegate& application);

    /** The options that show and hide together, in order; the interface fills it. */
    QList<Button*> menuOptionsButton;
    Button* const QuoteListButton;
    Button* const QuoteListByGroupsButton;
    Button* const AddNewQuoteButton;
    Button* const TopicsButton;
    Button* const ImportButton;
    Button* const ExportButton;
    Button* const RateShareButton;
    Button* const DefaultButton;
    UserDefaults& userDefaults;
    const QString AboutHasBeenLaunchedBeforeFlag = QStringLiteral("AboutHasBeenLaunchedBeforeFlag");
    ManagedObjectContext* managedObjectContext = nullptr;
    QStringList SourcesList;
    QStringList AuthorsList;

    void viewDidLoad() override;
    void viewWillAppear() override;
    void prepareForSegue(Segue& segue, QObject* sender) override;
    /** Shows the options that are hidden and hides those that show, in 0.3 seconds. */
    Button* menuButton() const { return m_menuButton; }
    void handleSelection();
    Q_INVOKABLE void unwindToMainMenuWithSegue(Segue* segue);

private:
    void rebuildNamesAtFirstLaunch();
    QList<QObject*> shownOptions() const;

    Button* const m_menuButton;
    AppDelegate& m_application;
};
