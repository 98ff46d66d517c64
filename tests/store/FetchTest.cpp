#include "support/StoreFixture.h"

#include <algorithm>
#include <random>

namespace {

using FetchTest = StoreTest;
using Texts = std::vector<std::optional<QString>>;

template <class Record, class KeyType>
concept Sortable = requires(KeyType key) {
    SortDescriptor<Record>{key, true};
};
template <class KeyType, class Value>
concept Comparable = requires(KeyType key, Value value) {
    key == value;
};

static_assert(Sortable<Event, TextKey<Event>> && Sortable<Event, DateKey<Event>>);
static_assert(!Sortable<Event, TextKey<Topics>>);
static_assert(Comparable<DateKey<Event>, Date> && !Comparable<DateKey<Event>, QString>);
static_assert(!Comparable<TextKey<Event>, Date>);
static_assert(!std::is_constructible_v<std::optional<Predicate<Event>>, Predicate<Topics>>);

// In code-point order; UTF-16 order would put the last before the one ahead of it.
const Texts ordered{std::nullopt,
                    QStringLiteral(""),
                    QStringLiteral("A"),
                    QStringLiteral("AB"),
                    QStringLiteral("a"),
                    QStringLiteral("é"),
                    QStringLiteral("\uff5e"),
                    QStringLiteral("\U0001F600")};

template <class ValueKey>
std::vector<Event*> sorted(ManagedObjectContext& context, ValueKey key, bool ascending) {
    auto request = Event::fetchRequest();
    request.sortDescriptors = {{key, ascending}};
    return fetched(context, request);
}

} // namespace

TEST_F(FetchTest, OrdersTextsByCodePointAbsentFirst) {
    const auto container = open();
    auto& context = container->viewContext();
    for (const std::size_t i : {5U, 0U, 7U, 2U, 6U, 1U, 4U, 3U}) {
        auto* event = context.insert<Event>();
        event->setAuthor(ordered[i]);
        event->setQuote(ordered[i]);
        if (i > 0)
            event->setTimestamp(Date(std::chrono::milliseconds(int(i) - 4)));
    }
    const auto authors = [&](const std::vector<Event*>& events) {
        Texts result;
        for (const auto* event : events)
            result.push_back(event->author());
        return result;
    };
    const Texts reversed(ordered.rbegin(), ordered.rend());
    EXPECT_EQ(authors(sorted(context, Event::Keys::author, true)), ordered);
    EXPECT_EQ(authors(sorted(context, Event::Keys::author, false)), reversed);
    EXPECT_EQ(authors(sorted(context, Event::Keys::quote, true)), ordered);
    EXPECT_EQ(authors(sorted(context, Event::Keys::quote, false)), reversed);
    EXPECT_EQ(authors(sorted(context, Event::Keys::timestamp, true)), ordered);
    EXPECT_EQ(authors(sorted(context, Event::Keys::timestamp, false)), reversed);

    sorted(context, Event::Keys::author, true).at(2)->setAuthor(QStringLiteral("z"));
    EXPECT_EQ(sorted(context, Event::Keys::author, true).at(4)->author(), QStringLiteral("z"))
        << "a new name finds its place";
}

TEST_F(FetchTest, TiesKeepTheOrderOfInsertionInBothDirections) {
    const auto container = open();
    auto& context = container->viewContext();
    std::vector<Event*> b;
    std::vector<Event*> a;
    for (int i = 0; i < 6; ++i) {
        auto* event = context.insert<Event>();
        event->setCategory(i % 2 == 0 ? QStringLiteral("b") : QStringLiteral("a"));
        event->setSource(QStringLiteral("same"));
        (i % 2 == 0 ? b : a).push_back(event);
    }
    auto both = a;
    both.insert(both.end(), b.begin(), b.end());
    EXPECT_EQ(sorted(context, Event::Keys::category, true), both);
    both = b;
    both.insert(both.end(), a.begin(), a.end());
    EXPECT_EQ(sorted(context, Event::Keys::category, false), both);
    auto request = Event::fetchRequest();
    request.sortDescriptors = {{Event::Keys::source, false}, {Event::Keys::category, false}};
    EXPECT_EQ(fetched(context, request), both);
}

TEST_F(FetchTest, PredicatesCompareExactlyAndAbsentEqualsNothing) {
    const auto container = open();
    auto& context = container->viewContext();
    context.insert<Event>();
    auto* empty = context.insert<Event>();
    empty->setAuthor(QString());
    empty->setQuote(QString());
    auto* smith = context.insert<Event>();
    smith->setAuthor(QStringLiteral("Smith"));
    smith->setTimestamp(Date(std::chrono::milliseconds(5)));
    context.insert<Event>()->setAuthor(QStringLiteral("smith"));

    EXPECT_EQ(fetched(context, Event::Keys::author == QString()), std::vector{empty});
    EXPECT_EQ(fetched(context, Event::Keys::quote == QString()), std::vector{empty});
    EXPECT_EQ(fetched(context, Event::Keys::author == QStringLiteral("Smith")), std::vector{smith});
    EXPECT_EQ(fetched(context, Event::Keys::timestamp == Date(std::chrono::milliseconds(5))),
              std::vector{smith});
    EXPECT_TRUE(fetched(context, Event::Keys::timestamp == Date()).empty());
    EXPECT_TRUE(fetched(context, Event::Keys::author == QStringLiteral("unknown")).empty());
    EXPECT_TRUE(fetched(context, Event::Keys::author == QStringLiteral("Smith") &&
                                     Event::Keys::source == QString())
                    .empty());
}

// Whatever is done, fetches agree with a plain list that is filtered and sorted anew each time.
TEST_F(FetchTest, AgreesWithAPlainListUnderRandomChanges) {
    struct Line {
        Event* event;
        std::array<std::optional<std::string>, 3> texts; // author, source, category, in UTF-8
    };
    const std::array keys{Event::Keys::author, Event::Keys::source, Event::Keys::category};
    constexpr std::array setters{&Event::setAuthor, &Event::setSource, &Event::setCategory};
    std::mt19937 random(20240131); // the same run each time
    const auto below = [&](std::size_t end) { return std::size_t(random() % end); };

    const auto container = open();
    auto& context = container->viewContext();
    std::vector<Line> lines;
    const auto set = [&](Line& line, std::size_t attribute) {
        const auto& text = ordered[below(ordered.size())];
        (line.event->*setters[attribute])(text);
        line.texts[attribute] = text ? std::optional(text->toStdString()) : std::nullopt;
    };
    for (int step = 0; step < 1500; ++step) {
        const auto choice = below(10);
        if (choice < 4 || lines.empty()) {
            lines.push_back({context.insert<Event>(), {}});
            for (std::size_t i = 0; i < keys.size(); ++i)
                set(lines.back(), i);
        } else if (choice < 8) {
            set(lines[below(lines.size())], below(3));
        } else if (choice < 9) {
            const auto line = lines.begin() + std::ptrdiff_t(below(lines.size()));
            context.deleteObject(*line->event);
            lines.erase(line);
        } else {
            save(context);
        }

        const auto tested = below(3);
        const auto alsoTested = below(3);
        const auto& text = ordered[1 + below(ordered.size() - 1)];
        const auto& otherText = ordered[1 + below(ordered.size() - 1)];
        const bool filters = below(2) == 0;
        std::array<std::size_t, 3> order{0, 1, 2};
        std::shuffle(order.begin(), order.end(), random);
        const bool ascending = below(2) == 0;

        auto request = Event::fetchRequest();
        if (filters)
            request.predicate = keys[tested] == *text && keys[alsoTested] == *otherText;
        request.sortDescriptors.reserve(order.size());
        for (const auto key : order)
            request.sortDescriptors.emplace_back(keys[key], ascending);

        auto expected = lines;
        if (filters) {
            std::erase_if(expected, [&](const Line& line) {
                return line.texts[tested] != text->toStdString() ||
                       line.texts[alsoTested] != otherText->toStdString();
            });
        }
        std::stable_sort(expected.begin(), expected.end(), [&](const Line& l, const Line& r) {
            for (const auto key : order) {
                if (l.texts[key] != r.texts[key])
                    return (l.texts[key] < r.texts[key]) == ascending;
            }
            return false;
        });
        std::vector<Event*> events;
        events.reserve(expected.size());
        for (const auto& line : expected)
            events.push_back(line.event);
        ASSERT_EQ(fetched(context, request), events) << "step " << step;
    }
}
