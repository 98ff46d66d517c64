#include "QuoteForm.h"

#include "app/FetchOrLog.h"
#include "shared/CommonLook.h"
#include "toolkit/AlertController.h"

#include <QLoggingCategory>

#include <algorithm>

Q_DECLARE_LOGGING_CATEGORY(lcQuotes)

namespace {

enum PickerTag { TopicTag = 1, SourceTag = 2, AuthorTag = 3 };

} // namespace

QuoteForm::QuoteForm(ViewController& screen, AppDelegate& application)
    : SourceTextField(new TextField(&screen, QStringLiteral("Source")))
    , CategoryTextField(new TextField(&screen, QStringLiteral("Topic")))
    , AuthorTextField(new TextField(&screen, QStringLiteral("Author")))
    , DateAddedTextField(new TextField(&screen, QStringLiteral("Date")))
    , QuoteTextView(new TextView(&screen, QStringLiteral("Quote")))
    , datePickerView(
          new DatePicker(&screen, QStringLiteral("Date picker"), application.services.environment))
    , TopicPickerView(new PickerView(&screen, QStringLiteral("Topic picker")))
    , SourcePickerView(new PickerView(&screen, QStringLiteral("Source picker")))
    , AuthorPickerView(new PickerView(&screen, QStringLiteral("Author picker")))
    , QuoteDate(application.services.environment.now())
    , m_screen(screen)
    , m_application(application) {
    QObject::connect(DateAddedTextField, &TextInput::editingDidBegin, &screen,
                     [this] { DateEntered(); });
    QObject::connect(datePickerView, &DatePicker::valueChanged, &screen,
                     [this] { m_datePicked = m_dateIsChosen = true; });
    QObject::connect(DateAddedTextField, &TextInput::entered, &screen, [this] { takeTypedDate(); });
    for (TextField* field :
         {SourceTextField, CategoryTextField, AuthorTextField, DateAddedTextField})
        field->shouldReturn = [this, field] { return textFieldShouldReturn(*field); };
}

void QuoteForm::wirePickers() {
    const auto wire = [this](PickerView& picker, PickerTag tag, TextField& field) {
        picker.setDelegate(this);
        picker.setTag(tag);
        field.setInputView(&picker);
    };
    wire(*TopicPickerView, TopicTag, *CategoryTextField);
    wire(*SourcePickerView, SourceTag, *SourceTextField);
    wire(*AuthorPickerView, AuthorTag, *AuthorTextField);
}

void QuoteForm::styleFields() {
    for (TextInput* field : inputs())
        styleFormField(*field);
}

void QuoteForm::fetchTopics() {
    TopicList = sortedRecords<Topics>(m_application.persistentContainer().viewContext(),
                                      {{Topics::Keys::topic, true}}, lcQuotes);
    TopicPickerView->reloadAllComponents();
}

void QuoteForm::fetchSourcesAndAuthors() {
    ManagedObjectContext& context = m_application.persistentContainer().viewContext();
    SourceList = sortedRecords<Sources>(context, {{Sources::Keys::name, true}}, lcQuotes);
    AuthorList = sortedRecords<Authors>(context, {{Authors::Keys::name, true}}, lcQuotes);
    SourcePickerView->reloadAllComponents();
    AuthorPickerView->reloadAllComponents();
}

void QuoteForm::DateEntered() {
    const Services& services = m_application.services;
    if (!m_datePicked)
        datePickerView->setDate(services.environment.now());
    datePickerView->setStyle(
        datePickerStyle(services.userDefaults, services.environment.systemVersion));
    DateAddedTextField->setInputView(datePickerView);
    if (!DateAddedTextField->inputAccessoryView())
        addDateToolbar(
            *DateAddedTextField, [this] { todayClick(); }, [this] { doneClick(); });
    showDate(datePickerView->date());
    QuoteDate = datePickerView->date();
}

void QuoteForm::doneClick() {
    m_dateIsChosen = true;
    QuoteDate = datePickerView->date();
    showDate(datePickerView->date());
    m_screen.endEditing();
}

void QuoteForm::todayClick() {
    m_dateIsChosen = true;
    // The field says today while the picked date is what a save writes.
    QuoteDate = datePickerView->date();
    showDate(m_application.services.environment.now());
    m_screen.endEditing();
}

bool QuoteForm::textFieldShouldReturn(TextField& field) {
    if (&field == DateAddedTextField) {
        doneClick();
        return false;
    }
    field.endEditing();
    return true;
}

void QuoteForm::adjustForKeyboardWithNotification(double height) {
    QuoteTextView->setBottomInset(height);
    QuoteTextView->scrollSelectionToVisible();
}

bool QuoteForm::validate() {
    const auto title = QStringLiteral("Insert New Record Canceled");
    for (const TextField* field :
         {SourceTextField, DateAddedTextField, CategoryTextField, AuthorTextField}) {
        if (field->text().isEmpty()) {
            presentAlert(m_screen, title,
                         QStringLiteral("Source, Category, Author or Date Not Entered"));
            return false;
        }
    }
    if (!m_dateIsRead)
        presentAlert(m_screen, title,
                     QStringLiteral("The date cannot be read: \"%1\"")
                         .arg(DateAddedTextField->text().left(100)));
    return m_dateIsRead;
}

std::array<TextInput*, 5> QuoteForm::inputs() const {
    return {SourceTextField, CategoryTextField, AuthorTextField, DateAddedTextField, QuoteTextView};
}

bool QuoteForm::hasUnsavedChanges() const {
    const auto all = inputs();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const bool counts = all[i] != DateAddedTextField || m_dateIsChosen;
        if (counts && all[i]->text() != m_savedTexts[i])
            return true;
    }
    return false;
}

void QuoteForm::noteSaved() {
    std::ranges::transform(inputs(), m_savedTexts.begin(), &TextInput::text);
    m_dateIsChosen = false;
}

void QuoteForm::save(Event& quote) {
    quote.setSource(SourceTextField->text());
    quote.setAuthor(AuthorTextField->text());
    quote.setCategory(CategoryTextField->text());
    quote.setTimestamp(QuoteDate);
    quote.setQuote(QuoteTextView->text());
    noteSaved();
    if (const auto error = m_application.persistentContainer().viewContext().save())
        qCWarning(lcQuotes) << error->description;
    else
        m_application.services.notes.say(QStringLiteral("Saved"));
}

int QuoteForm::numberOfComponentsInPickerView(const PickerView& /*picker*/) const {
    return 1;
}

int QuoteForm::numberOfRowsInComponent(const PickerView& picker, int /*component*/) const {
    switch (picker.tag()) {
    case TopicTag:
        return int(TopicList.size());
    case SourceTag:
        return int(SourceList.size());
    case AuthorTag:
        return int(AuthorList.size());
    default:
        return 0;
    }
}

QString QuoteForm::titleForRow(const PickerView& picker, int row, int /*component*/) const {
    const auto index = std::size_t(row);
    const auto name = picker.tag() == TopicTag    ? TopicList.at(index)->topic()
                      : picker.tag() == SourceTag ? SourceList.at(index)->name()
                                                  : AuthorList.at(index)->name();
    return name.value_or(QLatin1String(""));
}

PickerLabel QuoteForm::viewForRow(const PickerView& picker, int row, int component) const {
    return {titleForRow(picker, row, component), 16, /*bold*/ true, /*centered*/ true};
}

void QuoteForm::didSelectRow(const PickerView& picker, int row, int component) {
    TextField* field = picker.tag() == TopicTag    ? CategoryTextField
                       : picker.tag() == SourceTag ? SourceTextField
                                                   : AuthorTextField;
    field->setText(titleForRow(picker, row, component));
}

void QuoteForm::showDate(Date date) {
    m_dateIsRead = true;
    DateAddedTextField->setText(
        formatDate(date, DateStyle::Long, m_application.services.environment));
}

void QuoteForm::takeTypedDate() {
    m_dateIsChosen = true;
    const Environment& environment = m_application.services.environment;
    const QString text = DateAddedTextField->text();
    auto date = parseDate(text, DateStyle::Long, environment);
    if (!date)
        date = parseDate(text, DateStyle::Medium, environment);
    m_dateIsRead = date.has_value();
    if (!date)
        return;
    const WallTime day = wallTime(*date, environment);
    datePickerView->choose(day.year, day.month, day.day);
    QuoteDate = datePickerView->date();
}

DatePicker::Style datePickerStyle(const UserDefaults& userDefaults, const SystemVersion& version) {
    const auto wanted = [&](const QString& key) {
        return userDefaults.object(key) && userDefaults.boolForKey(key);
    };
    DatePicker::Style style = DatePicker::Automatic;
    if (version >= SystemVersion{13, 4} && wanted(QStringLiteral("UseDateWheel")))
        style = DatePicker::Wheels;
    if (version >= SystemVersion{13, 4} && wanted(QStringLiteral("UseDateCompact")))
        style = DatePicker::Compact;
    if (version >= SystemVersion{14, 0} && wanted(QStringLiteral("UseDateInline")))
        style = DatePicker::Inline;
    return style;
}
