#include "NewViewTableViewController.h"

#include "app/FetchOrLog.h"
#include "foundation/FatalError.h"
#include "quotes/ChosenQuote.h"
#include "shared/CommonLook.h"
#include "toolkit/SubtitleTableViewCell.h"

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcQuotes)

NewViewTableViewController::NewViewTableViewController(AppDelegate& application)
    : m_application(application) {}

void NewViewTableViewController::viewDidLoad() {
    auto request = Event::fetchRequest();
    request.returnsObjectsAsFaults = false;
    request.sortDescriptors = {{Event::Keys::category, true}};
    unfilteredEvent =
        fetchOrLog(m_application.persistentContainer().viewContext(), request, lcQuotes);
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
    const Environment& environment = m_application.services.environment;
    chooseQuote(quote, m_application.services.selection,
                [&](Date date) { return formatDate(date, DateStyle::Medium, environment); });
}

const Event& NewViewTableViewController::quoteAt(int row) const {
    if (row < 0 || std::size_t(row) >= unfilteredEvent.size())
        fatalError(QStringLiteral("The quote list by topic has no row %1").arg(row));
    return *unfilteredEvent[std::size_t(row)];
}
