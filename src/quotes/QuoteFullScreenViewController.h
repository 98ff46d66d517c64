#pragma once

#include "app/AppDelegate.h"
#include "toolkit/TextInput.h"

/** The text of the selected quote alone, to read and to edit. */
class QuoteFullScreenViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Storyboards make controllers")
    Q_PROPERTY(TextView* QuoteTextView MEMBER QuoteTextView CONSTANT)
    Q_PROPERTY(double readingSize READ readingSize CONSTANT)

public:
    explicit QuoteFullScreenViewController(AppDelegate& application);

    TextView* const QuoteTextView;

    /** In points; 0 while the user has chosen none. */
    double readingSize() const;

    void viewDidLoad() override;
    void viewWillDisappear() override;
    void touchesBegan() override;
    bool handsChangesBack() const override { return true; }
    void ShareButtonTapped();

private:
    AppDelegate& m_application;
};
