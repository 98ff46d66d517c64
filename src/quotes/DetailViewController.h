#pragma once

#include "quotes/QuoteForm.h"
#include "toolkit/BarButtonItem.h"
#include "toolkit/Stepper.h"

#include <vector>

/** One quote: read at a size of one's own, changed, shared and printed. */
class DetailViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(TextField* SourceTextField MEMBER SourceTextField CONSTANT)
    Q_PROPERTY(TextField* CategoryTextField MEMBER CategoryTextField CONSTANT)
    Q_PROPERTY(TextField* AuthorTextField MEMBER AuthorTextField CONSTANT)
    Q_PROPERTY(TextField* DateAddedTextField MEMBER DateAddedTextField CONSTANT)
    Q_PROPERTY(TextView* QuoteTextView MEMBER QuoteTextView CONSTANT)
    Q_PROPERTY(Button* TopicButton MEMBER TopicButton CONSTANT)
    Q_PROPERTY(Button* SourceButton MEMBER SourceButton CONSTANT)
    Q_PROPERTY(Button* AuthorButton MEMBER AuthorButton CONSTANT)
    Q_PROPERTY(Button* DecreaseFontSize MEMBER DecreaseFontSize CONSTANT)
    Q_PROPERTY(Button* IncreaseFontSize MEMBER IncreaseFontSize CONSTANT)
    Q_PROPERTY(Button* FullScreenButton MEMBER FullScreenButton CONSTANT)
    Q_PROPERTY(Stepper* FontStepper MEMBER FontStepper CONSTANT)
    Q_PROPERTY(TextField* FontSizeTextField MEMBER FontSizeTextField CONSTANT)

public:
    explicit DetailViewController(AppDelegate& application);

    QuoteForm form;
    TextField* const SourceTextField;
    TextField* const CategoryTextField;
    TextField* const AuthorTextField;
    TextField* const DateAddedTextField;
    TextView* const QuoteTextView;
    Button* const TopicButton;
    Button* const SourceButton;
    Button* const AuthorButton;
    Button* const DecreaseFontSize;
    Button* const IncreaseFontSize;
    Button* const FullScreenButton;
    Stepper* const FontStepper;
    TextField* const FontSizeTextField;
    BarButtonItem* const SaveButton;
    std::vector<Event*> Results;
    qsizetype ResultsCount = 0;
    double ReaderFontSize = 25;  ///< points
    Event* detailItem = nullptr; ///< for the screen that opens this one; not read here

    void viewDidLoad() override;
    void viewWillAppear() override;
    bool hasUnsavedChanges() const override { return form.hasUnsavedChanges(); }
    Q_INVOKABLE void unwindToQuoteDetailWithSegue(Segue* segue);
    Q_INVOKABLE void dismissKeyboard();

    void IncreaseDecreaseFontSize();
    void increaseFont();
    void decreaseFont();
    void SaveQuote();
    void insertNewObject();
    void ShareButtonTapped();
    void EmailFileClick();

private:
    /** The values by which the record is found again, as they were when the screen opened. */
    struct RecordKey {
        QString source;
        QString topic;
        QString author;
        std::optional<Date> date;

        bool operator==(const RecordKey&) const = default;
    };

    RecordKey selectedKey() const;
    void loadReaderFontSize();
    void storeReaderFontSize(double size);
    AttributedText atReaderFontSize(const QString& quote) const;
    void showHighlighted();
    void changeFontBy(double points);
    void showAtReaderFontSize();
    void takeBackSelection();
    void fetchNames();
    /** The records that have the key; of several, the one that was opened comes first. */
    std::vector<Event*> recordsOfKey() const;
    /** Whether there is a way back to the screen that opened this one. */
    bool returnToOpener();
    QString whyNotFound() const;

    AppDelegate& m_application;
    RecordKey m_key;
    QString m_openedQuoteText;
    QString m_shownQuoteText;
    bool m_hasAppeared = false;
    QString m_openedBy;
};
