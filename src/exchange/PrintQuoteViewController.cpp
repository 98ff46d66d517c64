#include "PrintQuoteViewController.h"

#include "app/FetchOrLog.h"
#include "app/Outcomes.h"
#include "app/TextSharing.h"
#include "shared/CommonLook.h"
#include "shared/Screens.h"

#include <QLoggingCategory>

#include <algorithm>
#include <array>

Q_DECLARE_LOGGING_CATEGORY(lcExchange)

namespace {

/** A part of a quote's block of text. */
struct Field {
    const char* label = "";
    std::optional<QString> (Event::*value)() const = nullptr;
    bool leftOutWhenEmpty = false;
    const char* end = " - ";
};

/** The quotes that a breakdown screen lists, and how their text is laid out. */
struct Group {
    QLatin1String callingScreen;
    const char* header = "";
    TextKey<Event> key{};
    QString SelectionValues::*name = nullptr;
    TextKey<Event> order{};
    std::array<Field, 4> fields;
};

constexpr std::array groups{Group{callers::authorBreakdown,
                                  "Event Filtered by Author",
                                  Event::Keys::author,
                                  &SelectionValues::selectedAuthor,
                                  Event::Keys::category,
                                  {{{"Author: ", &Event::author},
                                    {"Source: ", &Event::source},
                                    {"Topic: ", &Event::category, true},
                                    {"Quote: ", &Event::quote}}}},
                            Group{callers::sourceBreakdown,
                                  "Event Filtered by Source",
                                  Event::Keys::source,
                                  &SelectionValues::selectedSource,
                                  Event::Keys::author,
                                  {{{"Source: ", &Event::source},
                                    {"Author: ", &Event::author},
                                    {"Topic: ", &Event::category, true},
                                    {"Quote: ", &Event::quote}}}},
                            Group{callers::topicBreakdown,
                                  "Event Filtered by Topic",
                                  Event::Keys::category,
                                  &SelectionValues::selectedTopic,
                                  Event::Keys::author,
                                  {{{"Topic: ", &Event::category},
                                    {"Source: ", &Event::source},
                                    {"Author: ", &Event::author, true},
                                    {"Quote: ", &Event::quote, false, ""}}}}};

/** The group of a calling screen; null when that is no breakdown. */
const Group* groupOf(const QString& callingScreen) {
    const auto* found = std::ranges::find_if(
        groups, [&](const Group& group) { return callingScreen == group.callingScreen; });
    return found == groups.end() ? nullptr : found;
}

QString blockOf(const Event& quote, const Group& group) {
    QString block;
    for (const Field& field : group.fields) {
        const auto value = (quote.*field.value)();
        if (value && !(field.leftOutWhenEmpty && value->isEmpty()))
            block += QLatin1String(field.label) + *value + QLatin1String(field.end);
    }
    return block + QStringLiteral("\n\n");
}

} // namespace

PrintQuoteViewController::PrintQuoteViewController(AppDelegate& application)
    : CreateFileButton(new Button(this, QStringLiteral("Create File")))
    , PrintButton(new Button(this, QStringLiteral("Print")))
    , EmailButton(new Button(this, QStringLiteral("Share")))
    , FileTextView(new TextView(this, QStringLiteral("File text")))
    , m_application(application) {
    connect(CreateFileButton, &Button::touchUpInside, this,
            &PrintQuoteViewController::CreateFileClick);
    connect(PrintButton, &Button::touchUpInside, this, &PrintQuoteViewController::EmailFileClick);
    connect(EmailButton, &Button::touchUpInside, this,
            &PrintQuoteViewController::shareButtonClicked);
}

void PrintQuoteViewController::viewDidLoad() {
    for (Button* button : {CreateFileButton, PrintButton, EmailButton})
        styleButton(*button);
    styleFormField(*FileTextView);
    const SelectionValues& selection = m_application.services.selection;
    // Other breakdowns may be looked at before the text is built.
    m_openedBy = selection.callingScreen;
    const Group* group = groupOf(m_openedBy);
    if (!group)
        return;
    managedObjectContext = &m_application.persistentContainer().viewContext();
    auto request = Event::fetchRequest();
    request.returnsObjectsAsFaults = false;
    request.predicate = group->key == selection.*group->name;
    request.sortDescriptors = {{group->order, true}};
    QuoteList = fetchOrLog(*managedObjectContext, request, lcExchange);
}

void PrintQuoteViewController::viewDidDisappear() {
    dismiss();
}

void PrintQuoteViewController::CreateFileClick() {
    QString text;
    if (const Group* group = groupOf(m_openedBy)) {
        text = QLatin1String(group->header) + QStringLiteral("\n\n");
        for (const Event* quote : QuoteList)
            text += blockOf(*quote, *group);
    }
    FileTextView->setText(text);
    EmailFileClick();
}

void PrintQuoteViewController::EmailFileClick() {
    const QString text = FileTextView->text();
    if (text.isEmpty())
        return;
    PrintJob job;
    job.markup = QString(text).replace(u'\n', QStringLiteral("<br />"));
    job.jobName = QStringLiteral("Quotes");
    m_application.services.platform.print(job, m_application.services.longWork,
                                          tellOn(*this, m_application));
}

void PrintQuoteViewController::shareButtonClicked() {
    shareText(*this, m_application, FileTextView->text());
}
