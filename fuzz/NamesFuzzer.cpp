#include "Sessions.h"
#include "names/Breakdowns.h"
#include "names/BrowseLists.h"
#include "names/RecordLists.h"
#include "names/TopicTableTableViewController.h"
#include "reliability/NameForms.h"
#include "support/TestApplication.h"

#include <algorithm>

namespace {

const QString groupName = QStringLiteral("a"); ///< of the quotes that the breakdown lists

struct Quote {
    Event* record;
    std::array<std::optional<QString>, 3> fields; // category, author, source
};

/** The list of the authors in quotes, as it must be. */
struct AuthorsModel {
    QStringList names;
    QStringList filtered;
    QString searchText;
    bool ascending = true;

    QStringList& shown() { return searchText.isEmpty() ? names : filtered; }

    void sort(QStringList& list) const {
        std::sort(list.begin(), list.end(), [this](const QString& left, const QString& right) {
            return ascending ? sortable(left) < sortable(right) : sortable(right) < sortable(left);
        });
    }

    void load(const std::vector<Quote>& quotes) {
        for (const Quote& quote : quotes) {
            if (quote.fields[1] && !names.contains(*quote.fields[1]))
                names.append(*quote.fields[1]);
        }
        sort(names);
    }

    void search(const QString& text) {
        searchText = text;
        filtered = names;
        filtered.removeIf([&text](const QString& name) { return !matches(name, text); });
    }
};

/** The quotes of a topic, as they must be listed. */
struct BreakdownModel {
    std::vector<Quote> all;
    std::vector<Quote> filtered;
    QString searchText;
    std::size_t segment = 0; // author, source
    bool ascending = true;

    std::vector<Quote>& shown() { return searchText.isEmpty() ? all : filtered; }

    void refresh(const std::vector<Quote>& quotes) {
        all = quotes;
        std::erase_if(all, [](const Quote& quote) { return quote.fields[0] != groupName; });
        const auto key = [this](const Quote& quote) {
            return std::pair(sortable(quote.fields.at(1 + segment)),
                             sortable(quote.fields.at(2 - segment)));
        };
        std::stable_sort(all.begin(), all.end(), [&](const Quote& left, const Quote& right) {
            return ascending ? key(left) < key(right) : key(right) < key(left);
        });
    }

    void search(const QString& text) {
        searchText = text;
        filtered = all;
        std::erase_if(filtered, [this](const Quote& quote) {
            return !matches(quote.fields.at(1 + segment), searchText);
        });
    }
};

/** The records of one kind of names: a list of them, its forms, and what it must show. */
template <class List, class AddForm, class EditForm>
class Names {
public:
    Names(TestApplication& application, QString SelectionValues::*chosen)
        : m_application(application)
        , m_list(application.delegate)
        , m_chosen(application.selection.*chosen) {
        m_list.loadViewIfNeeded();
    }

    void act(Choices& choices, TextField* const AddForm::*newName, void (AddForm::*add)(),
             TextField* const EditForm::*editedName, void (EditForm::*edit)()) {
        const int row = m_names.empty() ? -1 : int(anyOf(choices, m_names.size()));
        const QString name = anyText(choices).value_or(QString());
        switch (choices.below(4)) {
        case 0:
        case 1:
            saveName(m_application.delegate, newName, add, name);
            if (!name.isEmpty())
                m_names.push_back(name);
            break;
        case 2:
            if (row < 0)
                return;
            m_list.didSelectRowAtIndexPath(row);
            saveName(m_application.delegate, editedName, edit, name);
            if (!name.isEmpty())
                *std::ranges::find(m_names, sorted().at(std::size_t(row))) = name;
            break;
        default:
            if (row < 0)
                return;
            m_list.trailingSwipeActionsConfigurationForRowAtIndexPath(row).front().handler();
            m_names.erase(std::ranges::find(m_names, sorted().at(std::size_t(row))));
            compare();
            return;
        }
        m_list.viewWillAppear(); // as it does when a form goes away
        compare();
    }

private:
    std::vector<QString> sorted() const {
        auto names = m_names;
        std::ranges::sort(names, {}, [](const QString& name) { return sortable(name); });
        return names;
    }

    void compare() {
        require(m_list.numberOfRowsInSection(0) == int(m_names.size()), "all names are there");
        const auto names = sorted();
        for (std::size_t row = 0; row < names.size(); ++row) {
            m_list.didSelectRowAtIndexPath(int(row));
            require(m_chosen == names[row], "names are in order");
        }
    }

    TestApplication& m_application;
    List m_list;
    QString& m_chosen;
    std::vector<QString> m_names; // in the order of entry; those alike are not told apart
};

class Session {
public:
    Session()
        : m_authors(m_application.delegate)
        , m_breakdown(m_application.delegate)
        , m_authorNames(m_application, &SelectionValues::chosenAuthorName)
        , m_topicNames(m_application, &SelectionValues::chosenTopicName) {
        m_application.selection.selectedTopic = groupName;
        m_authors.loadViewIfNeeded();
        m_breakdown.loadViewIfNeeded();
    }

    void act(Choices& choices) {
        switch (choices.below(10)) {
        case 0:
        case 1:
            add(choices);
            break;
        case 2:
            remove(choices);
            break;
        case 3:
            rename(choices);
            break;
        case 4:
            m_authorNames.act(choices, &AddAuthorViewController::AuthorTextField,
                              &AddAuthorViewController::SaveAuthor,
                              &EditAuthorViewController::AuthorTextField,
                              &EditAuthorViewController::SaveAuthor);
            break;
        case 5:
            m_topicNames.act(choices, &TopicViewController::TopicTextField,
                             &TopicViewController::SaveTopic,
                             &EditTopicViewController::TopicTextField,
                             &EditTopicViewController::SaveButtonTapped);
            break;
        case 6:
            comeBack();
            break;
        case 7:
            sort();
            break;
        case 8:
            search(choices);
            break;
        default:
            m_breakdown.quotes.segment->choose(
                int(m_ofTopic.segment = std::size_t(choices.below(2))));
            m_ofTopic.refresh(m_quotes);
            break;
        }
        compareAuthors();
        compareBreakdown();
    }

private:
    static void set(Quote& quote, std::size_t field, const std::optional<QString>& text) {
        static constexpr std::array setters{&Event::setCategory, &Event::setAuthor,
                                            &Event::setSource};
        (quote.record->*setters.at(field))(text);
        quote.fields.at(field) = text;
    }

    void add(Choices& choices) {
        Quote quote{m_application.context().insert<Event>(), {}};
        set(quote, 0, choices.below(2) == 0 ? groupName : anyText(choices).value_or(QString()));
        for (const std::size_t field : {1, 2})
            set(quote, field, anyText(choices));
        m_application.delegate.saveContext();
        m_quotes.push_back(quote);
        comeBack();
    }

    void remove(Choices& choices) {
        if (m_quotes.empty())
            return;
        const auto place = m_quotes.begin() + std::ptrdiff_t(anyOf(choices, m_quotes.size()));
        m_application.context().deleteObject(*place->record);
        m_application.delegate.saveContext();
        m_quotes.erase(place);
        comeBack();
    }

    void rename(Choices& choices) {
        if (m_quotes.empty())
            return;
        Quote& quote = m_quotes.at(anyOf(choices, m_quotes.size()));
        const auto field = std::size_t(choices.below(3));
        set(quote, field, anyText(choices));
        m_application.delegate.saveContext();
        comeBack();
    }

    /** Another screen gives way to the lists. */
    void comeBack() {
        m_authors.viewWillDisappear();
        m_authors.unwindToAuthorTableViewWithSegue(nullptr);
        m_authors.viewWillAppear();
        m_inQuotes.load(m_quotes);
        m_breakdown.quotes.refresh();
        m_ofTopic.refresh(m_quotes);
    }

    void sort() {
        m_authors.list.SortData();
        m_inQuotes.ascending = !m_inQuotes.ascending;
        if (m_inQuotes.searchText.isEmpty())
            m_inQuotes.load(m_quotes);
        else
            m_inQuotes.sort(m_inQuotes.filtered);
        m_breakdown.quotes.SortData();
        m_ofTopic.ascending = !m_ofTopic.ascending;
        m_ofTopic.refresh(m_quotes);
    }

    void search(Choices& choices) {
        const QString text = anyText(choices).value_or(QString());
        if (text == m_ofTopic.searchText)
            return;
        m_authors.list.searchController->searchBar()->setText(text);
        m_inQuotes.search(text);
        m_breakdown.quotes.searchController->searchBar()->setText(text);
        m_ofTopic.search(text);
    }

    void compareAuthors() {
        const QStringList& shown = m_inQuotes.shown();
        TableView& table = *m_authors.tableView();
        require(m_authors.numberOfRowsInSection(0) == int(shown.size()), "all authors are there");
        for (int row = 0; row < int(shown.size()); ++row) {
            auto* cell = qobject_cast<AuthorTableViewCell*>(table.beginDisplaying(row));
            const auto count = std::ranges::count_if(
                m_quotes, [&](const Quote& quote) { return quote.fields[1] == shown.at(row); });
            require(cell->AuthorLabel->text() == shown.at(row), "authors are in order");
            require(cell->CountLabel->text() == QString::number(count), "quotes are counted");
            table.endDisplaying(cell);
        }
    }

    void compareBreakdown() {
        const auto& shown = m_ofTopic.shown();
        const auto& records = m_ofTopic.searchText.isEmpty() ? m_breakdown.quotes.QuoteList
                                                             : m_breakdown.quotes.FilteredQuoteList;
        require(m_breakdown.tableView()->header()->text() ==
                    QStringLiteral("%1 Topic(s)").arg(shown.size()),
                "the quotes of the topic are counted");
        require(std::ranges::equal(records, shown, {}, {}, &Quote::record),
                "the quotes of the topic are in order");
    }

    TestApplication m_application;
    AuthorTableViewController m_authors;
    TopicBreakdownTableViewController m_breakdown;
    Names<NewAuthorTableViewController, AddAuthorViewController, EditAuthorViewController>
        m_authorNames;
    Names<TopicTableTableViewController, TopicViewController, EditTopicViewController> m_topicNames;
    std::vector<Quote> m_quotes; // in the order of entry
    AuthorsModel m_inQuotes;
    BreakdownModel m_ofTopic;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    return runSession<Session>(bytes, count);
}
