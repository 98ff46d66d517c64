#include "DetailViewController.h"

#include "app/FetchOrLog.h"
#include "app/Outcomes.h"
#include "app/TextSharing.h"
#include "foundation/FatalError.h"
#include "foundation/RegularExpression.h"
#include "quotes/ChosenQuote.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"
#include "toolkit/NavigationController.h"
#include "toolkit/Storyboard.h"

#include <QHash>
#include <QLoggingCategory>

#include <algorithm>

Q_DECLARE_LOGGING_CATEGORY(lcQuotes)

namespace {

const auto sizeKey = QStringLiteral("ReaderFontSize");
const auto readingFont = QStringLiteral("Helvetica Neue");

} // namespace

DetailViewController::DetailViewController(AppDelegate& application)
    : form(*this, application)
    , SourceTextField(form.SourceTextField)
    , CategoryTextField(form.CategoryTextField)
    , AuthorTextField(form.AuthorTextField)
    , DateAddedTextField(form.DateAddedTextField)
    , QuoteTextView(form.QuoteTextView)
    , TopicButton(new Button(this, QStringLiteral("Topic list")))
    , SourceButton(new Button(this, QStringLiteral("Source list")))
    , AuthorButton(new Button(this, QStringLiteral("Author list")))
    , DecreaseFontSize(new Button(this, QStringLiteral("Decrease font size")))
    , IncreaseFontSize(new Button(this, QStringLiteral("Increase font size")))
    , FullScreenButton(new Button(this, QStringLiteral("Full Screen")))
    , FontStepper(new Stepper(this, QStringLiteral("Font size"), 8, 96, 1))
    , FontSizeTextField(new TextField(this, QStringLiteral("Font size in points")))
    , SaveButton(new BarButtonItem(this, QStringLiteral("Save"), [this] { SaveQuote(); }))
    , m_application(application) {
    FontStepper->setValue(14);
    connect(FontStepper, &Stepper::valueChanged, this,
            &DetailViewController::IncreaseDecreaseFontSize);
    connect(IncreaseFontSize, &Button::touchUpInside, this, &DetailViewController::increaseFont);
    connect(DecreaseFontSize, &Button::touchUpInside, this, &DetailViewController::decreaseFont);
}

void DetailViewController::viewDidLoad() {
    const SelectionValues& selection = m_application.services.selection;
    m_openedBy = selection.callingScreen;
    m_key = selectedKey();
    m_openedQuoteText = selection.selectedQuoteText;
    m_shownQuoteText = m_openedQuoteText;
    loadReaderFontSize();
    QuoteTextView->setFont({QString(), ReaderFontSize});
    form.wirePickers();
    fetchNames();
    for (Button* button : {TopicButton, SourceButton, AuthorButton}) {
        button->setCornerRadius(5);
        button->setBorderWidth(2);
    }
    TopicButton->setBorderColor(black);
    form.styleFields();
    FontStepper->setCornerRadius(10);
    FontStepper->setBorderWidth(2);
    styleFormField(*FontSizeTextField);
    styleButton(*FullScreenButton);
    if (!m_key.date)
        fatalError(lacks("date", m_shownQuoteText));
    DateAddedTextField->setText(
        formatDate(*m_key.date, DateStyle::Medium, m_application.services.environment));
    SourceTextField->setText(m_key.source);
    CategoryTextField->setText(m_key.topic);
    AuthorTextField->setText(m_key.author);
    showHighlighted();
    form.noteSaved();
}

void DetailViewController::viewWillAppear() {
    takeBackSelection();
    m_shownQuoteText = m_application.services.selection.selectedQuoteText;
    QuoteTextView->setText(m_shownQuoteText);
    fetchNames();
    // A quote that was reached through this one's lists may have been this one.
    if (m_hasAppeared && SaveButton->isEnabled() && recordsOfKey().empty())
        SaveButton->setEnabled(false);
    m_hasAppeared = true;
}

void DetailViewController::unwindToQuoteDetailWithSegue(Segue* /*segue*/) {
    fetchNames();
}

void DetailViewController::dismissKeyboard() {
    endEditing();
}

void DetailViewController::IncreaseDecreaseFontSize() {
    const double size = FontStepper->value();
    if (ReaderFontSize < size)
        changeFontBy(1);
    else if (size < ReaderFontSize)
        changeFontBy(-1);
    // The shown size trails the stepper by one step.
    QuoteTextView->setFont({QString(), ReaderFontSize});
    storeReaderFontSize(size);
    FontSizeTextField->setText(decimalDescription(size));
}

void DetailViewController::increaseFont() {
    if (QuoteTextView->font())
        changeFontBy(1);
    else
        QuoteTextView->setFont({QStringLiteral("Ariel"), 24});
    storeReaderFontSize(ReaderFontSize + 1);
    showAtReaderFontSize();
}

void DetailViewController::decreaseFont() {
    changeFontBy(-1);
    storeReaderFontSize(ReaderFontSize - 1);
    showAtReaderFontSize();
}

void DetailViewController::SaveQuote() {
    if (!form.validate())
        return;
    Results = recordsOfKey();
    ResultsCount = qsizetype(Results.size());
    if (Results.empty())
        fatalError(whyNotFound());
    form.save(*Results.front());
    if (!returnToOpener())
        SaveButton->setEnabled(false); // the key may have changed under the quote
}

QString DetailViewController::whyNotFound() const {
    auto request = Event::fetchRequest();
    request.predicate = Event::Keys::quote == m_shownQuoteText;
    const auto count = m_application.persistentContainer().viewContext().count(request);
    return (count > 0
                ? QStringLiteral("The quote by \"%1\" was changed since this screen opened, and "
                                 "cannot be found by what it was. Open it again to change it.")
                : QStringLiteral("The quote by \"%1\" is no longer in the store"))
        .arg(m_key.author);
}

void DetailViewController::insertNewObject() {
    NavigationController* navigation = navigationController();
    if (!storyboard() || !navigation)
        return;
    auto screen = storyboard()->instantiate(scenes::addQuote);
    qCInfo(lcQuotes) << screen->title();
    if (navigation->topViewController()->restorationIdentifier() != screen->restorationIdentifier())
        navigation->pushViewController(std::move(screen));
}

void DetailViewController::ShareButtonTapped() {
    shareText(*this, m_application,
              QStringLiteral("Source: ") + SourceTextField->text() + QStringLiteral("\nTopic: ") +
                  CategoryTextField->text() + QStringLiteral("\nAuthor: ") +
                  AuthorTextField->text() + QStringLiteral("\n\n") + QuoteTextView->text(),
              {ActivityType::AirDrop, ActivityType::AddToReadingList});
}

void DetailViewController::EmailFileClick() {
    QString text;
    const auto append = [&text](const QString& caption, const QString& value, const QString& end) {
        if (!value.isEmpty())
            text += caption + value + end;
    };
    append(QStringLiteral("Source: "), SourceTextField->text(), QStringLiteral("\n"));
    append(QStringLiteral("Topic: "), CategoryTextField->text(), QStringLiteral("\n"));
    append(QStringLiteral("Author: "), AuthorTextField->text(), QStringLiteral("\n\n"));
    append(QStringLiteral("Quote: "), QuoteTextView->text(), QString());
    text.replace(QLatin1Char('\n'), QStringLiteral("<br />"));
    m_application.services.platform.print({text, 72, title()}, m_application.services.longWork,
                                          tellOn(*this, m_application));
}

DetailViewController::RecordKey DetailViewController::selectedKey() const {
    const SelectionValues& selection = m_application.services.selection;
    return {selection.selectedSource, selection.selectedTopic, selection.selectedAuthor,
            selection.selectedDate};
}

void DetailViewController::loadReaderFontSize() {
    UserDefaults& userDefaults = m_application.services.userDefaults;
    if (!userDefaults.object(sizeKey)) {
        ReaderFontSize = 14;
        FontSizeTextField->setText(QStringLiteral("14"));
        userDefaults.setInteger(sizeKey, 14);
        userDefaults.synchronize();
        return;
    }
    ReaderFontSize = userDefaults.doubleForKey(sizeKey);
    FontStepper->setValue(ReaderFontSize);
    FontSizeTextField->setText(decimalDescription(ReaderFontSize));
}

void DetailViewController::storeReaderFontSize(double size) {
    ReaderFontSize = size;
    m_application.services.userDefaults.setDouble(sizeKey, size);
    m_application.services.userDefaults.synchronize();
}

AttributedText DetailViewController::atReaderFontSize(const QString& quote) const {
    AttributedText text;
    text.text = quote;
    text.font = {readingFont, ReaderFontSize};
    return text;
}

void DetailViewController::showHighlighted() {
    AttributedText text = atReaderFontSize(m_shownQuoteText);
    if (!m_shownQuoteText.isEmpty()) {
        // The expression is the quote itself, so that an ordinary quote is highlighted whole.
        const auto matches = matchesIgnoringCase(m_shownQuoteText, m_shownQuoteText);
        if (const auto* fault = std::get_if<PatternFault>(&matches))
            fatalError(
                QStringLiteral(
                    "A quote with the sign \"%1\" in this place cannot be opened: \"%2\"\n\n"
                    "It can be deleted in the quote list. Or export the collection, mend the "
                    "quote in a text program, delete it here and import the file.")
                    .arg(fault->sign, m_shownQuoteText.left(200)));
        text.highlights = std::get<std::vector<TextRange>>(matches);
        text.centered = !text.highlights.empty();
    }
    QuoteTextView->setAttributedText(text);
    QuoteTextView->setFont({QString(), ReaderFontSize});
}

void DetailViewController::changeFontBy(double points) {
    if (const auto font = QuoteTextView->font())
        QuoteTextView->setFont({font->family, font->size + points});
}

void DetailViewController::showAtReaderFontSize() {
    QuoteTextView->setAttributedText(
        atReaderFontSize(m_application.services.selection.selectedQuoteText));
}

// The lists that this screen leads to choose other quotes, and name themselves as the calling
// screen; this one stays what it was, and so does who opened it.
void DetailViewController::takeBackSelection() {
    SelectionValues& selection = m_application.services.selection;
    selection.callingScreen = m_openedBy;
    if (selectedKey() == m_key)
        return;
    selection.selectedSource = m_key.source;
    selection.selectedTopic = m_key.topic;
    selection.selectedAuthor = m_key.author;
    selection.selectedDate = m_key.date;
    selection.selectedQuoteText = m_shownQuoteText;
}

void DetailViewController::fetchNames() {
    form.fetchTopics();
    form.fetchSourcesAndAuthors();
}

std::vector<Event*> DetailViewController::recordsOfKey() const {
    auto request = Event::fetchRequest();
    request.predicate = Event::Keys::timestamp == *m_key.date &&
                        Event::Keys::source == m_key.source &&
                        Event::Keys::category == m_key.topic && Event::Keys::author == m_key.author;
    auto found = fetchOrLog(m_application.persistentContainer().viewContext(), request, lcQuotes);
    std::ranges::stable_partition(found, [this](const Event* quote) {
        return quote->quote().value_or(QString()) == m_openedQuoteText;
    });
    return found;
}

bool DetailViewController::returnToOpener() {
    static const QHash<QString, QString> segues{{callers::chosenQuote, unwinds::toOpeningQuotes},
                                                {callers::topicBreakdown, unwinds::toTopics},
                                                {callers::sourceBreakdown, unwinds::toSources},
                                                {callers::authorBreakdown, unwinds::toAuthors}};
    if (!segues.contains(m_openedBy))
        return false;
    performSegue(segues.value(m_openedBy), this);
    return true;
}
