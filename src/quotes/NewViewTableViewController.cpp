#include "NewViewTableViewController.h"

#include "foundation/FatalError.h"
#include "shared/CommonLook.h"
#include "toolkit/SubtitleTableViewCell.h"

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcQuotes)

namespace {

template <class Value>
Value required(const std::optional<Value>& value, const char* what) {
    if (!value)
        fatalError(QStringLiteral("The chosen quote has no %1").arg(QLatin1String(what)));
    return *value;
}

} // namespace

NewViewTableViewController::NewViewTableViewController(AppDelegate& application)
    : m_application(application) {}

void NewViewTableViewController::viewDidLoad() {
    auto request = Event::fetchRequest();
    request.returnsObjectsAsFaults = false;
    request.sortDescriptors = {{Event::Keys::category, true}};
    auto result = m_application.persistentContainer().viewContext().fetch(request);
    if (result.error)
        qCWarning(lcQuotes) << result.error->description;
    unfilteredEvent = std::move(result.records);
    tableView()->reloadData();
}

int NewViewTableViewController::numberOfRowsInSection(int /*section*/) const {
    return int(unfilteredEvent.size());
}

TableViewCell* NewViewTableViewController::cellForRowAtIndexPath(int row) {
    auto* cell = tableView()->dequeueReusableCell<SubtitleTableViewCell>(QStringLiteral("Cell"));
    styleRow(*cell);
    const Event& quote = quoteAt(row);
    cell->textLabel->setText(quote.source().value_or(QString()));
    cell->detailTextLabel->setText(quote.category().value_or(QString()) + QStringLiteral("    ") +
                                   quote.author().value_or(QString()));
    return cell;
}

bool NewViewTableViewController::canEditRowAtIndexPath(int /*row*/) const {
    return true;
}

void NewViewTableViewController::didSelectRowAtIndexPath(int row) {
    const Event& quote = quoteAt(row);
    SelectionValues& selection = m_application.services.selection;
    // What comes before the first absent value stays chosen.
    selection.selectedAuthor = required(quote.author(), "author");
    selection.selectedTopic = required(quote.category(), "topic");
    selection.selectedSource = required(quote.source(), "source");
    selection.selectedDate = required(quote.timestamp(), "date");
    selection.selectedDateText =
        formatDate(*selection.selectedDate, DateStyle::Medium, m_application.services.environment);
    selection.selectedQuoteText = required(quote.quote(), "text");
}

const Event& NewViewTableViewController::quoteAt(int row) const {
    if (row < 0 || std::size_t(row) >= unfilteredEvent.size())
        fatalError(QStringLiteral("The quote list by topic has no row %1").arg(row));
    return *unfilteredEvent[std::size_t(row)];
}
