#include "ChosenQuote.h"

QString lacks(const char* what, const QString& quote) {
    return QStringLiteral(
               "The chosen quote has no %1: \"%2\"\n\nIt cannot be opened, but it can be "
               "deleted in the quote list.")
        .arg(QLatin1String(what), quote.left(200));
}

void chooseQuote(const Event& quote, SelectionValues& selection,
                 const std::function<QString(Date)>& dateText) {
    selection.selectedAuthor = required(quote, quote.author(), "author");
    selection.selectedTopic = required(quote, quote.category(), "topic");
    selection.selectedSource = required(quote, quote.source(), "source");
    selection.selectedDate = required(quote, quote.timestamp(), "date");
    selection.selectedDateText = dateText(*selection.selectedDate);
    selection.selectedQuoteText = required(quote, quote.quote(), "text");
}
