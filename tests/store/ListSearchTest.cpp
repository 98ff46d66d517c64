#include "store/ListSearch.h"

#include "store/FoldedTexts.h"
#include "support/StoreFixture.h"

#include <algorithm>

namespace {

class ListSearchTest : public StoreTest {
protected:
    Event* insert(const std::optional<QString>& text) {
        auto* event = context().insert<Event>();
        event->setAuthor(text);
        event->setQuote(text);
        return event;
    }

    /** What both a name and a quote text find, which must be the same. */
    std::vector<Event*> found(const std::vector<Event*>& list, const QString& text) {
        const auto byAuthor = matching(list, Event::Keys::author, text);
        EXPECT_EQ(matching(list, Event::Keys::quote, text), byAuthor);
        return byAuthor;
    }

    ManagedObjectContext& context() { return m_container->viewContext(); }

    std::unique_ptr<PersistentContainer> m_container = open();
};

} // namespace

TEST_F(ListSearchTest, IgnoresCaseAndKeepsTheOrderOfTheList) {
    auto* absent = insert(std::nullopt);
    auto* empty = insert(QString());
    auto* lower = insert(QStringLiteral("ann"));
    auto* joanna = insert(QStringLiteral("Joanna"));
    auto* other = insert(QStringLiteral("Bob"));
    const std::vector<Event*> list{joanna, other, absent, empty, lower};
    EXPECT_EQ(found(list, QStringLiteral("ANN")), (std::vector{joanna, lower}));
    EXPECT_EQ(found(list, QString()), (std::vector{joanna, other, lower}));
    EXPECT_TRUE(found(list, QStringLiteral("nna b")).empty()) << "not across two texts";
    EXPECT_TRUE(found({}, QStringLiteral("a")).empty());
}

TEST_F(ListSearchTest, LowersTheWholeOfUnicodeAndStripsNoAccents) {
    auto* istanbul = insert(QStringLiteral("İstanbul"));
    auto* sharp = insert(QStringLiteral("STRAẞE"));
    auto* accented = insert(QStringLiteral("Éluard"));
    auto* deseret = insert(QStringLiteral("\U00010400"));
    auto* withNul = insert(QStringLiteral("a%1B").arg(QChar(u'\0')));
    const std::vector<Event*> list{istanbul, sharp, accented, deseret, withNul};
    EXPECT_EQ(found(list, QStringLiteral("İS")), std::vector{istanbul});
    EXPECT_EQ(found(list, QStringLiteral("straße")), std::vector{sharp});
    EXPECT_TRUE(found(list, QStringLiteral("strasse")).empty());
    EXPECT_EQ(found(list, QStringLiteral("éL")), std::vector{accented});
    EXPECT_TRUE(found(list, QStringLiteral("el")).empty());
    EXPECT_EQ(found(list, QStringLiteral("\U00010428")), std::vector{deseret});
    EXPECT_TRUE(found(list, QString(QChar(0xd801))).empty()) << "half a character";
    EXPECT_EQ(found(list, QString(QChar(u'\0')) + u'b'), std::vector{withNul});
    const std::vector<Event*> greek{insert(QStringLiteral("ΛΟΓΟΣ")),
                                    insert(QStringLiteral("λόγος")),
                                    insert(QStringLiteral("ο λογος μου"))};
    for (const char* text : {"λογο", "λογοσ", "λογος", "ΛΟΓΟΣ"})
        EXPECT_EQ(found(greek, QString::fromUtf8(text)), (std::vector{greek[0], greek[2]})) << text;
    EXPECT_EQ(matching({QStringLiteral("ΛΟΓΟΣ")}, QStringLiteral("λογος")).size(), 1);
}

// Texts of one, two, three and four bytes a character are lowered by ways of their own.
TEST_F(ListSearchTest, LowersEachCharacterAsTheWholeTextIsLowered) {
    FoldedTexts texts;
    std::vector<QByteArray> expected;
    for (char32_t character = 1; character < 0x11000; ++character) {
        if (QChar::isSurrogate(character))
            continue;
        const QString text = QString::fromUcs4(&character, 1);
        texts.append(text.toUtf8());
        expected.push_back(folded(text).toUtf8());
        if (text != QStringLiteral("ς")) {
            EXPECT_EQ(expected.back(), text.toLower().toUtf8());
        }
    }
    for (const char* malformed : {"\x80", "\xa2\x80", "\xc1\x81", "\xc3", "\xc3Z", "\xe2\x82",
                                  "\xe0\x83\x89", "\xed\xa0\x80", "\xf0\x90\x90\x80Z"}) {
        texts.append(malformed);
        expected.push_back(QString::fromUtf8(malformed).toLower().toUtf8());
    }
    ASSERT_EQ(texts.count(), expected.size());
    for (std::size_t place = 0; place < expected.size(); ++place)
        EXPECT_EQ(texts.text(place), expected[place]) << place;
}

TEST_F(ListSearchTest, NarrowsAndWidensAsTheTextGrowsAndShrinks) {
    auto* love = insert(QStringLiteral("All you need is LOVE"));
    auto* glove = insert(QStringLiteral("Glove"));
    auto* low = insert(QStringLiteral("low"));
    const std::vector<Event*> list{low, glove, love};
    EXPECT_EQ(found(list, QStringLiteral("lo")), list);
    EXPECT_EQ(found(list, QStringLiteral("lov")), (std::vector{glove, love}));
    EXPECT_EQ(found(list, QStringLiteral("glov")), std::vector{glove}) << "longer at its start";
    EXPECT_EQ(found(list, QStringLiteral("lov")), (std::vector{glove, love}));
    low->setQuote(QStringLiteral("Lovely"));
    low->setAuthor(QStringLiteral("Lovely"));
    EXPECT_EQ(found(list, QStringLiteral("love")), list) << "after a change";
    EXPECT_EQ(found({love}, QStringLiteral("love")), std::vector{love});
    EXPECT_EQ(found(list, QStringLiteral("lovel")), std::vector{low}) << "after another list";
}

TEST_F(ListSearchTest, FollowsChangesAfterTheFirstSearch) {
    std::vector<Event*> list;
    list.reserve(301);
    for (int i = 0; i < 300; ++i)
        list.push_back(insert(QStringLiteral("Number %1").arg(i)));
    EXPECT_EQ(found(list, QStringLiteral("number 29")).size(), 11U);
    list[29]->setQuote(std::nullopt);
    list[29]->setAuthor(std::nullopt);
    list.push_back(insert(QStringLiteral("One more NUMBER 29")));
    EXPECT_EQ(found(list, QStringLiteral("number 29")).size(), 11U);
    EXPECT_EQ(found(list, QStringLiteral("more")), std::vector{list.back()});
    for (auto* event : list) {
        event->setQuote(QStringLiteral("Changed"));
        event->setAuthor(QStringLiteral("Changed"));
    }
    EXPECT_EQ(found(list, QStringLiteral("changed")), list);
    EXPECT_TRUE(found(list, QStringLiteral("number")).empty());
    EXPECT_TRUE(std::all_of(list.begin(), list.end(), [](const Event* event) {
        return event->quote() == QStringLiteral("Changed");
    }));

    context().deleteObject(*list[0]);
    EXPECT_EQ(found(list, QStringLiteral("changed")), list) << "the list still shows it";
}

TEST_F(ListSearchTest, IsPreparedInPartsBetweenWhichTextsChange) {
    const QString longText = QStringLiteral("LONG ").repeated(150'000);
    std::vector<Event*> list(5);
    std::ranges::generate(list,
                          [&, i = 0]() mutable { return insert(longText + char16_t('0' + i++)); });
    EXPECT_FALSE(prepareSearch({}));
    ASSERT_TRUE(prepareSearch(list));
    for (const auto row : {0U, 4U}) {
        list[row]->setQuote(QStringLiteral("Changed"));
        list[row]->setAuthor(QStringLiteral("Changed"));
    }
    list.push_back(insert(QStringLiteral("ADDED LONG 7")));
    ASSERT_TRUE(prepareSearch(list));
    EXPECT_EQ(found(list, QStringLiteral("changed")), (std::vector{list[0], list[4]}));
    EXPECT_EQ(found(list, QStringLiteral("long 3")), std::vector{list[3]});
    EXPECT_EQ(found(list, QStringLiteral("long 7")), std::vector{list[5]});
    EXPECT_FALSE(prepareSearch(list));
}

TEST_F(ListSearchTest, SearchesListsOfTexts) {
    const QStringList list{QStringLiteral("smith"), QString(), QStringLiteral("Jones"),
                           QStringLiteral("Smith")};
    EXPECT_EQ(matching(list, QStringLiteral("ITH")),
              (QStringList{QStringLiteral("smith"), QStringLiteral("Smith")}));
    EXPECT_EQ(matching(list, QString()).size(), 3);
}
