#include "ChosenQuote.h"

void chooseQuote(const Event& quote, SelectionValues& selection,
                 const std::function<QString(Date)>& dateText) {
    selection.selectedAuthor = required(quote, quote.author(), "author");
    selection.selectedTopic = required(quote, quote.category(), "topic");
    selection.selectedSource = required(quote, quote.source(), "source");
    selection.selectedDate = required(quote, quote.timestamp(), "date");
    selection.selectedDateText = dateText(*selection.selectedDate);
    selection.selectedQuoteText = required(quote, quote.quote(), "text");
}
