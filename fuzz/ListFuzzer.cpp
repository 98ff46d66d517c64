#include "Sessions.h"
#include "quotes/MasterTableViewCell.h"
#include "quotes/MasterViewController.h"
#include "support/TestApplication.h"

#include <algorithm>
#include <array>

namespace {

/** The list as it must be: a plain copy of the quotes, sorted and searched by comparing texts. */
class Model {
public:
    struct Quote {
        const Event* record;
        std::array<std::optional<QString>, 4> fields; // category, author, source, quote
        bool isDeleted = false;
    };
    using List = std::vector<std::size_t>;

    std::vector<Quote> quotes; // in the order of entry
    List all;
    List filtered;
    QString searchText;
    std::size_t segment = 0;
    bool ascending = true;

    List& shown() { return searchText.isEmpty() ? all : filtered; }

    void refresh() {
        all.clear();
        for (std::size_t i = 0; i < quotes.size(); ++i) {
            if (!quotes[i].isDeleted)
                all.push_back(i);
        }
        static const std::array<std::vector<std::size_t>, 4> keys{
            {{0, 1, 2}, {1, 0, 2}, {2, 0, 1}, {}}};
        std::stable_sort(all.begin(), all.end(), [this](std::size_t left, std::size_t right) {
            for (const auto key : keys.at(segment)) {
                const auto a = sortable(quotes[left].fields.at(key));
                const auto b = sortable(quotes[right].fields.at(key));
                if (a != b)
                    return ascending ? a < b : b < a;
            }
            return false;
        });
    }

    void search() {
        filtered = all;
        if (searchText.isEmpty())
            return;
        std::erase_if(filtered, [this](std::size_t i) {
            return !matches(quotes[i].fields.at(segment), searchText);
        });
    }
};

class Session {
public:
    Session()
        : m_list(m_application.delegate) {
        m_list.viewDidLoad();
        m_model.refresh();
    }

    void act(Choices& choices) {
        switch (choices.below(9)) {
        case 0:
        case 1:
            add(choices);
            break;
        case 2:
            m_model.segment = std::size_t(choices.below(4));
            if (m_list.segment->selectedIndex() != int(m_model.segment)) {
                m_list.segment->choose(int(m_model.segment));
                m_model.refresh();
            }
            break;
        case 3:
            m_list.SortButtonTapped();
            m_model.ascending = !m_model.ascending;
            m_model.refresh();
            break;
        case 4:
            search(anyText(choices).value_or(QString()));
            break;
        case 5:
            remove(choices);
            break;
        case 6:
            rename(choices);
            break;
        case 7:
            m_list.viewWillDisappear();
            m_list.viewWillAppear();
            m_model.refresh();
            break;
        default:
            m_list.unwindToMenu(nullptr);
            break;
        }
        compare();
    }

private:
    static void set(Event& record, std::size_t field, const std::optional<QString>& text) {
        static constexpr std::array setters{&Event::setCategory, &Event::setAuthor,
                                            &Event::setSource, &Event::setQuote};
        (record.*setters.at(field))(text);
    }

    void add(Choices& choices) {
        Event& record = *m_application.context().insert<Event>();
        Model::Quote quote{&record, {}, false};
        for (std::size_t field = 0; field < quote.fields.size(); ++field) {
            quote.fields.at(field) = anyText(choices);
            set(record, field, quote.fields.at(field));
        }
        m_application.delegate.saveContext();
        m_model.quotes.push_back(std::move(quote));
        m_list.unwindToMainList(nullptr);
        m_model.refresh();
    }

    void search(const QString& text) {
        if (text == m_model.searchText)
            return;
        m_list.searchController->searchBar()->setText(text);
        m_model.searchText = text;
        m_model.search();
    }

    void remove(Choices& choices) {
        auto& shown = m_model.shown();
        if (shown.empty())
            return;
        const int row = int(anyOf(choices, shown.size()));
        m_list.trailingSwipeActionsConfigurationForRowAtIndexPath(row).front().handler();
        m_model.quotes[shown[std::size_t(row)]].isDeleted = true;
        shown.erase(shown.begin() + row);
    }

    /** As another screen does: the list hears of it when it appears. */
    void rename(Choices& choices) {
        if (m_model.all.empty())
            return;
        Model::Quote& quote = m_model.quotes[m_model.all.at(anyOf(choices, m_model.all.size()))];
        const auto field = std::size_t(choices.below(4));
        const auto& text = anyText(choices);
        if (quote.isDeleted)
            return;
        set(const_cast<Event&>(*quote.record), field, text);
        m_application.delegate.saveContext();
        quote.fields.at(field) = text;
        m_list.viewWillAppear();
        m_model.refresh();
    }

    void compare() {
        const auto& shown = m_model.shown();
        require(m_list.numberOfRowsInSection(0) == int(shown.size()), "all rows are there");
        const auto line = m_model.searchText.isEmpty()
                              ? QStringLiteral("# of Quotes = %1")
                              : QStringLiteral("# of Quotes in your search = %1");
        require(m_list.tableView()->header()->text() == line.arg(shown.size()), "they are counted");
        const auto& records =
            m_model.searchText.isEmpty() ? m_list.QuoteList : m_list.FilteredQuoteList;
        for (std::size_t row = 0; row < shown.size(); ++row) {
            const Model::Quote& quote = m_model.quotes[shown[row]];
            require(records[row] == quote.record, "rows are in order");
            m_list.didSelectRowAtIndexPath(int(row));
            require(m_application.selection.selectedTopic == quote.fields[0].value_or(QString()) &&
                        m_application.selection.selectedQuoteText ==
                            quote.fields[3].value_or(QString()),
                    "a row leads to its quote");
        }
    }

    TestApplication m_application;
    MasterViewController m_list;
    Model m_model;
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    return runSession<Session>(bytes, count);
}
