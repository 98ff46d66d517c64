#pragma once

#include "app/AppDelegate.h"
#include "store/Records.h"
#include "toolkit/ActivityIndicatorView.h"
#include "toolkit/Button.h"
#include "toolkit/Progress.h"
#include "toolkit/ProgressBar.h"
#include "toolkit/TextInput.h"
#include "toolkit/ViewController.h"

#include <optional>
#include <vector>

/** Turns the whole collection into a collection file, and saves or mails it. */
class ExportViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(Button* ExportButton MEMBER ExportButton CONSTANT)
    Q_PROPERTY(Button* SaveButton MEMBER SaveButton CONSTANT)
    Q_PROPERTY(Button* EmailButton MEMBER EmailButton CONSTANT)
    Q_PROPERTY(TextView* ExportTextView MEMBER ExportTextView CONSTANT)
    Q_PROPERTY(ProgressBar* ProgressView MEMBER ProgressView CONSTANT)
    Q_PROPERTY(TextView* HelpTextView MEMBER HelpTextView CONSTANT)
    Q_PROPERTY(ActivityIndicatorView* activityIndicator MEMBER activityIndicator CONSTANT)

public:
    explicit ExportViewController(AppDelegate& application);

    Button* const ExportButton;
    Button* const SaveButton;
    Button* const EmailButton;
    TextView* const ExportTextView;
    ProgressBar* const ProgressView;
    TextView* const HelpTextView;
    ManagedObjectContext* managedObjectContext = nullptr;
    std::vector<Event*> theEventList;
    std::vector<Topics*> theTopicList;
    Progress progress{10};
    std::optional<QByteArray> DataString; ///< in UTF-8
    ActivityIndicatorView* const activityIndicator;

    void viewDidLoad() override;
    void CreateUpdateFile();
    void SaveToFiles();
    void WriteTextFile();

private:
    /** Has the main queue count so many more units of progress, and show them. */
    void postProgress(int units);
    QString filePath() const;

    AppDelegate& m_application;
};
