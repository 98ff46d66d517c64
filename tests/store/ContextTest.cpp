#include "foundation/FatalError.h"
#include "support/StoreFixture.h"

#include <stdexcept>

using ContextTest = StoreTest;

TEST_F(ContextTest, ReportsAStoreThatIsNotLoaded) {
    PersistentContainer container(QStringLiteral("Lantern"), folder());
    EXPECT_TRUE(container.viewContext().fetch(Event::fetchRequest()).error);
    EXPECT_FALSE(container.viewContext().save());
    const auto before =
        setFatalErrorHandler([](const FatalError&) { throw std::runtime_error("fatal"); });
    EXPECT_THROW(container.viewContext().insert<Event>(), std::runtime_error);
    setFatalErrorHandler(before);
}

TEST_F(ContextTest, HasChangesUntilTheyAreSavedOrUndone) {
    const auto container = open();
    auto& context = container->viewContext();
    EXPECT_FALSE(context.hasChanges());
    auto* event = context.insert<Event>();
    EXPECT_TRUE(context.hasChanges());
    event->setAuthor(QStringLiteral("Ann"));
    event->setQuote(QString());
    event->setTimestamp(Date());
    save(context);
    EXPECT_FALSE(context.hasChanges());

    event->setAuthor(QStringLiteral("Ann"));
    event->setQuote(QString());
    event->setSource(std::nullopt);
    event->setTimestamp(Date());
    EXPECT_FALSE(context.hasChanges()) << "equal values change nothing";
    event->setSource(QString());
    EXPECT_TRUE(context.hasChanges()) << "the empty text is not absence";
    save(context);

    context.deleteObject(*context.insert<Event>());
    EXPECT_FALSE(context.hasChanges()) << "inserted and deleted";
    context.deleteObject(*event);
    context.deleteObject(*event);
    EXPECT_TRUE(context.hasChanges());
    save(context);
    EXPECT_FALSE(context.hasChanges());
    event->setAuthor(QStringLiteral("Bob"));
    EXPECT_FALSE(context.hasChanges()) << "a deleted record takes no change";
}

TEST_F(ContextTest, FetchesSeeWhatIsNotSavedAndRecordsKeepTheirAddress) {
    const auto container = open();
    auto& context = container->viewContext();
    auto* ann = context.insert<Event>();
    ann->setAuthor(QStringLiteral("Ann"));
    EXPECT_EQ(fetched(context, Event::Keys::author == QStringLiteral("Ann")), std::vector{ann});
    save(context);
    ann->setAuthor(QStringLiteral("Bob"));
    EXPECT_TRUE(fetched(context, Event::Keys::author == QStringLiteral("Ann")).empty());
    EXPECT_EQ(fetched(context, Event::Keys::author == QStringLiteral("Bob")), std::vector{ann});

    context.deleteObject(*ann);
    EXPECT_TRUE(fetched<Event>(context).empty());
    EXPECT_TRUE(fetched(context, Event::Keys::author == QStringLiteral("Bob")).empty());
    save(context);
    EXPECT_TRUE(ann->isDeleted());
    EXPECT_EQ(ann->author(), QStringLiteral("Bob")) << "lists may still show it";
}

TEST_F(ContextTest, RestoresADeletedRecordInItsPlaceAsItWas) {
    const auto tellTexts = [](ManagedObjectContext& context) {
        QString texts;
        for (const auto* quote : fetched(context, Event::Keys::author == QStringLiteral("Ann")))
            texts += quote->quote().value_or(QStringLiteral("-"));
        return texts.toStdString();
    };
    {
        const auto container = open();
        auto& context = container->viewContext();
        std::vector<Event*> quotes;
        for (const char* text : {"a", "b", "c"}) {
            quotes.push_back(context.insert<Event>());
            quotes.back()->setAuthor(QStringLiteral("Ann"));
            quotes.back()->setQuote(QLatin1String(text));
        }
        save(context);
        context.deleteObject(*quotes[0]);
        context.restoreObject(*quotes[0]);
        EXPECT_FALSE(context.hasChanges()) << "deleted and restored";
        context.deleteObject(*quotes[1]);
        save(context);
        EXPECT_EQ(tellTexts(context), "ac");
        context.restoreObject(*quotes[1]);
        auto* never = context.insert<Event>();
        context.deleteObject(*never);
        context.restoreObject(*never);
        EXPECT_EQ(tellTexts(context), "abc");
        save(context);
        EXPECT_FALSE(context.hasChanges());
    }
    const auto container = open();
    EXPECT_EQ(tellTexts(container->viewContext()), "abc");
    EXPECT_EQ(fetched<Event>(container->viewContext()).size(), 4);
}

TEST_F(ContextTest, DeletesAllByIdentityAloneAndReadsAttributesOnDemand) {
    {
        const auto container = open();
        for (int i = 0; i < 5; ++i)
            container->viewContext().insert<Authors>()->setName(QString::number(i));
        save(container->viewContext());
    }
    auto container = open();
    auto request = Authors::fetchRequest();
    request.includesPropertyValues = false;
    auto records = fetched(container->viewContext(), request);
    ASSERT_EQ(records.size(), 5U);
    EXPECT_EQ(records[3]->name(), QStringLiteral("3"));
    EXPECT_EQ(fetched<Authors>(container->viewContext()), records);

    container.reset();
    container = open();
    records = fetched(container->viewContext(), request);
    for (auto* record : records) {
        container->viewContext().deleteObject(*record);
        save(container->viewContext());
    }
    EXPECT_TRUE(fetched<Authors>(container->viewContext()).empty());
    container.reset();
    EXPECT_TRUE(fetched<Authors>(open()->viewContext()).empty());
}

TEST_F(ContextTest, SeesWhatOtherContainersOfTheStoreHaveSaved) {
    const auto one = open();
    auto other = open();
    auto* mine = insertTopic(one->viewContext(), QStringLiteral("kept"));
    auto* changed = insertTopic(one->viewContext(), QStringLiteral("old"));
    auto* edited = insertTopic(one->viewContext(), QStringLiteral("old"));
    auto* deleted = insertTopic(one->viewContext(), QStringLiteral("deleted"));
    save(one->viewContext());

    const auto theirs = fetched<Topics>(other->viewContext());
    ASSERT_EQ(theirs.size(), 4U);
    theirs[1]->setTopic(QStringLiteral("new"));
    theirs[2]->setTopic(QStringLiteral("theirs"));
    other->viewContext().deleteObject(*theirs[3]);
    insertTopic(other->viewContext(), QStringLiteral("added"));
    EXPECT_EQ(topics(one->viewContext()).at(1), QStringLiteral("old")) << "not saved yet";

    edited->setTopic(QStringLiteral("mine"));
    auto* added = insertTopic(one->viewContext(), QStringLiteral("mine too"));
    save(other->viewContext());
    other.reset();
    const auto now = fetched<Topics>(one->viewContext());
    ASSERT_EQ(now.size(), 5U);
    EXPECT_EQ(now[0], mine);
    EXPECT_EQ(now[1], changed);
    EXPECT_EQ(changed->topic(), QStringLiteral("new"));
    EXPECT_EQ(edited->topic(), QStringLiteral("mine")) << "an unsaved change stays";
    EXPECT_EQ(now[3], added);
    EXPECT_EQ(now[4]->topic(), QStringLiteral("added"));
    EXPECT_TRUE(deleted->isDeleted());
    EXPECT_EQ(deleted->topic(), QStringLiteral("deleted"));
    EXPECT_EQ(fetched(one->viewContext(), Topics::Keys::topic == QStringLiteral("new")),
              std::vector{changed});
    save(one->viewContext());
    EXPECT_EQ(topics(open()->viewContext()),
              (std::vector{QStringLiteral("kept"), QStringLiteral("new"), QStringLiteral("mine"),
                           QStringLiteral("added"), QStringLiteral("mine too")}))
        << "in the order of insertion, not of saving";
}
