#include "QuoteFullScreenViewController.h"

#include "app/TextSharing.h"

QuoteFullScreenViewController::QuoteFullScreenViewController(AppDelegate& application)
    : QuoteTextView(new TextView(this, QStringLiteral("Quote")))
    , m_application(application) {}

double QuoteFullScreenViewController::readingSize() const {
    const UserDefaults& userDefaults = m_application.services.userDefaults;
    const auto key = QStringLiteral("ReaderFontSize");
    return userDefaults.object(key) ? userDefaults.doubleForKey(key) : 0;
}

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
