#pragma once

#include "quotes/QuoteForm.h"
#include "toolkit/Button.h"
#include "toolkit/ViewController.h"

/** The form on which a new quote is entered. */
class AddViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(TextField* SourceTextField MEMBER SourceTextField CONSTANT)
    Q_PROPERTY(TextField* CategoryTextField MEMBER CategoryTextField CONSTANT)
    Q_PROPERTY(TextField* AuthorTextField MEMBER AuthorTextField CONSTANT)
    Q_PROPERTY(TextField* DateAddedTextField MEMBER DateAddedTextField CONSTANT)
    Q_PROPERTY(TextView* QuoteTextView MEMBER QuoteTextView CONSTANT)
    Q_PROPERTY(Button* TopicButton MEMBER TopicButton CONSTANT)
    Q_PROPERTY(Button* SourcesButton MEMBER SourcesButton CONSTANT)
    Q_PROPERTY(Button* AuthorsButton MEMBER AuthorsButton CONSTANT)

public:
    explicit AddViewController(AppDelegate& application);

    QuoteForm form;
    TextField* const SourceTextField;
    TextField* const CategoryTextField;
    TextField* const AuthorTextField;
    TextField* const DateAddedTextField;
    TextView* const QuoteTextView;
    Button* const TopicButton;
    Button* const SourcesButton;
    Button* const AuthorsButton;

    void viewDidLoad() override;
    void viewWillAppear() override;
    bool hasUnsavedChanges() const override { return form.hasUnsavedChanges(); }
    Q_INVOKABLE void dismissKeyboard();
    void SaveQuote();

private:
    void leave();

    AppDelegate& m_application;
    QString m_openedBy;
};
