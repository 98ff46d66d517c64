#pragma once

#include "app/AppDelegate.h"
#include "exchange/Collection.h"
#include "store/Records.h"
#include "toolkit/Button.h"
#include "toolkit/TextInput.h"
#include "toolkit/ViewController.h"

#include <QStringList>
#include <QUrl>

#include <optional>
#include <vector>

/** Reads a collection file that the user chooses, and merges it into the store. */
class ImportViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(Button* ImportButton MEMBER ImportButton CONSTANT)
    Q_PROPERTY(Button* LoadFileButton MEMBER LoadFileButton CONSTANT)
    Q_PROPERTY(TextView* ImportTextView MEMBER ImportTextView CONSTANT)
    Q_PROPERTY(TextView* HelpTextView MEMBER HelpTextView CONSTANT)

public:
    explicit ImportViewController(AppDelegate& application);

    Button* const ImportButton;
    Button* const LoadFileButton;
    TextView* const ImportTextView;
    TextView* const HelpTextView;
    ManagedObjectContext* managedObjectContext = nullptr;
    std::vector<Event*> results;
    std::vector<Topics*> topicResults;
    /** The topics in the store when the screen loaded, trimmed; the import does not extend it. */
    QStringList TopicList;
    qsizetype resultCount = 0;
    qsizetype topicCount = 0;
    std::optional<QString> document;
    std::optional<QString> filename;
    std::optional<QString> theAuthor;
    std::optional<QString> theCategory;
    std::optional<QString> theSource;
    std::optional<QString> theTopic;
    std::optional<bool> wrongFile;
    std::optional<QString> WhichSection;

    void viewDidLoad() override;
    void LoadFile();
    void ImportTextFile();
    void didPickDocumentAtURL(const QUrl& url);
    void documentPickerWasCancelled() {}

private:
    void finish(Imported imported);
    void report();

    AppDelegate& m_application;
};
