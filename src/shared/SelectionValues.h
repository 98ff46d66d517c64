#pragma once

#include "foundation/Date.h"

#include <QString>

#include <optional>

/** What one screen hands to the next: one set for the whole program, empty at launch. */
struct SelectionValues {
    QString selectedQuoteText = QLatin1String("");
    QString selectedTopic = QLatin1String("");
    QString selectedSource = QLatin1String("");
    QString selectedAuthor = QLatin1String("");
    std::optional<Date> selectedDate;
    QString selectedDateText = QLatin1String("");
    QString chosenAuthorName = QLatin1String("");
    QString chosenSourceName = QLatin1String("");
    QString chosenTopicName = QLatin1String("");
    QString searchText = QLatin1String("");
    /** Which screen opened the next one, such as "Menu" or "Master". */
    QString callingScreen = QLatin1String("");
};
