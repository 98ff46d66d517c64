#include "QuoteFullScreenViewController.h"

#include "app/TextSharing.h"

QuoteFullScreenViewController::QuoteFullScreenViewController(AppDelegate& application)
    : QuoteTextView(new TextView(this, QStringLiteral("Quote")))
    , m_application(application) {}

void QuoteFullScreenViewController::viewDidLoad() {
    QuoteTextView->setText(m_application.services.selection.selectedQuoteText);
    noteSaved();
}

void QuoteFullScreenViewController::viewWillDisappear() {
    m_application.services.selection.selectedQuoteText = QuoteTextView->text();
}

void QuoteFullScreenViewController::touchesBegan() {
    endEditing();
}

void QuoteFullScreenViewController::ShareButtonTapped() {
    shareText(*this, m_application,
              QStringLiteral("Topic: ") + m_application.services.selection.selectedTopic +
                  QStringLiteral("\n\n") + QuoteTextView->text(),
              {ActivityType::AirDrop, ActivityType::AddToReadingList});
}
