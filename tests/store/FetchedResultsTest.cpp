#include "store/DistinctNames.h"
#include "store/FetchedResultsController.h"
#include "support/StoreFixture.h"

namespace {

using FetchedResultsTest = StoreTest;
using Type = FetchedResultsChangeType;

/** Notes what it is told, with marks for the start and the end. */
class Notes final : public FetchedResultsControllerDelegate {
public:
    void controllerWillChangeContent() override { ++begun; }
    void didChangeObject(std::optional<int> row, Type type, std::optional<int> newRow) override {
        changes.push_back({row, type, newRow});
    }
    void controllerDidChangeContent() override { ++ended; }

    std::vector<FetchedResultsChange> take() { return std::exchange(changes, {}); }

    int begun = 0;
    int ended = 0;
    std::vector<FetchedResultsChange> changes;
};

} // namespace

TEST_F(FetchedResultsTest, TellsOfTheChangesOfEverySave) {
    const auto container = open();
    auto& context = container->viewContext();
    std::vector<Topics*> records;
    for (const auto* topic : {"b", "d", "f"})
        records.push_back(insertTopic(context, QLatin1String(topic)));
    save(context);
    auto request = Topics::fetchRequest();
    request.sortDescriptors = {{Topics::Keys::topic, true}};
    Notes notes;
    FetchedResultsController<Topics> controller(request, context, notes);
    ASSERT_FALSE(controller.performFetch());
    EXPECT_EQ(controller.fetchedObjects(), records);

    context.insert<Authors>()->setName(QStringLiteral("A"));
    save(context);
    EXPECT_EQ(notes.begun, 0);

    // Rows of the old list and rows of the new one, in one save.
    context.deleteObject(*records[1]);
    insertTopic(context, QStringLiteral("a"));
    insertTopic(context, QStringLiteral("e"));
    EXPECT_EQ(notes.begun, 0);
    save(context);
    EXPECT_EQ(notes.take(),
              (std::vector<FetchedResultsChange>{
                  {1, Type::Delete, {}}, {{}, Type::Insert, 0}, {{}, Type::Insert, 2}}));

    // a b e f: one record goes past others, another stays in its place.
    records[0]->setTopic(QStringLiteral("g"));
    records[2]->setTopic(QStringLiteral("ff"));
    save(context);
    EXPECT_EQ(notes.take(),
              (std::vector<FetchedResultsChange>{{1, Type::Move, 3}, {3, Type::Update, {}}}));
    EXPECT_EQ(controller.fetchedObjects().back(), records[0]);
    EXPECT_EQ(notes.begun, 2);
    EXPECT_EQ(notes.ended, 2);
}

TEST_F(FetchedResultsTest, EndsWithItsController) {
    const auto container = open();
    auto& context = container->viewContext();
    Notes notes;
    {
        FetchedResultsController<Topics> controller({}, context, notes);
        ASSERT_FALSE(controller.performFetch());
    }
    insertTopic(context, QStringLiteral("a"));
    save(context);
    EXPECT_EQ(notes.begun, 0);
}

TEST_F(FetchedResultsTest, CountsAndNamesWithoutTheRecords) {
    const auto container = open();
    auto& context = container->viewContext();
    std::vector<Event*> quotes;
    for (const auto* author : {"b", "a", "b", "B"}) {
        quotes.push_back(context.insert<Event>());
        quotes.back()->setAuthor(QLatin1String(author));
        quotes.back()->setSource(QStringLiteral("S"));
    }
    quotes.push_back(context.insert<Event>());
    EXPECT_EQ(distinctNames(quotes, Event::Keys::author), QStringList({"b", "a", "B"}));
    EXPECT_EQ(distinctNames({}, Event::Keys::author), QStringList());
    auto request = Event::fetchRequest();
    EXPECT_EQ(context.count(request), 5U);
    request.predicate = Event::Keys::author == QStringLiteral("b");
    EXPECT_EQ(context.count(request), 2U);
    context.deleteObject(*quotes.front());
    EXPECT_EQ(context.count(request), 1U);
    request.predicate = *request.predicate && Event::Keys::source == QStringLiteral("T");
    EXPECT_EQ(context.count(request), 0U);
}
