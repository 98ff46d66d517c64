#pragma once

#include "app/AppDelegate.h"
#include "store/Records.h"
#include "toolkit/Button.h"
#include "toolkit/TextInput.h"
#include "toolkit/ViewController.h"

#include <vector>

/** The quotes of one topic, source or author as one text, to print and to share. */
class PrintQuoteViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(Button* CreateFileButton MEMBER CreateFileButton CONSTANT)
    Q_PROPERTY(Button* PrintButton MEMBER PrintButton CONSTANT)
    Q_PROPERTY(Button* EmailButton MEMBER EmailButton CONSTANT)
    Q_PROPERTY(TextView* FileTextView MEMBER FileTextView CONSTANT)

public:
    explicit PrintQuoteViewController(AppDelegate& application);

    Button* const CreateFileButton;
    Button* const PrintButton;
    Button* const EmailButton;
    TextView* const FileTextView;
    ManagedObjectContext* managedObjectContext = nullptr;
    std::vector<Event*> QuoteList;

    void viewDidLoad() override;
    void viewDidDisappear() override;
    /** Builds the text, and prints it. */
    void CreateFileClick();
    /** Prints the text. */
    void EmailFileClick();
    void shareButtonClicked();

private:
    AppDelegate& m_application;
    QString m_openedBy;
};
