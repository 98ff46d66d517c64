#include "Views.h"
#include "ui/WindowPlace.h"

#include <QFont>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

double luminance(QRgb color) {
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color));
}

double contrast(QRgb first, QRgb second) {
    const double one = luminance(first);
    const double other = luminance(second);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

/** How much what is drawn in a place stands out from its ground, which is most of it. */
double contrastIn(const QImage& picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QRgb ground = 0;
    for (auto color = counts.begin(); color != counts.end(); ++color) {
        if (*color > counts.value(ground))
            ground = color.key();
    }
    double highest = 1;
    for (auto color = counts.begin(); color != counts.end(); ++color)
        highest = std::max(highest, contrast(color.key(), ground));
    return highest;
}

/** What of an item the window shows. */
QRect shownPart(const QQuickItem& item) {
    QRectF shown = item.mapRectToScene(item.boundingRect());
    for (const QQuickItem* page = item.parentItem(); page; page = page->parentItem()) {
        if (page->clip())
            shown &= page->mapRectToScene(page->boundingRect());
    }
    return shown.toAlignedRect() & QRect(QPoint(), item.window()->size());
}

/** Needs some seconds: each screen is drawn in all looks. */
class Looks : public Views {
protected:
    /** All that can be read and pressed in the window now, in each look. */
    void measure(const char* screen) {
        for (int look = 0; look < 4; ++look) {
            Appearance& appearance = program.appearance();
            appearance.dark = look & 1;
            appearance.highContrast = look & 2;
            Q_EMIT appearance.changed();
            QTest::qWait(200); // in which colours fade
            const QImage picture = pilot->grab();
            const bool dims = program.navigation().presentedViewController();
            walk(*program.quickWindow().contentItem(), dims, [&](const QQuickItem& item) {
                const auto place = testing::Message()
                                   << screen << " in look " << look << ": "
                                   << item.metaObject()->className() << " \""
                                   << item.property("text").toString().toStdString() << '"';
                if (const double least = leastContrast(item)) {
                    ++measured;
                    EXPECT_GE(contrastIn(picture.copy(shownPart(item))), least) << place;
                }
                if (item.inherits("QQuickAbstractButton") && !item.inherits("QQuickItemDelegate")) {
                    EXPECT_GE(item.width(), 44) << place;
                    EXPECT_GE(item.height(), 44) << place;
                }
            });
        }
    }

    int measured = 0;

private:
    template <class Do>
    void walk(const QQuickItem& item, bool dims, const Do& action) {
        // What cannot be worked may be faint, and so may all that stands below an alert or a sheet.
        if (!item.isVisible() || !item.isEnabled() || item.opacity() < 1)
            return;
        if (const QRect shown = shownPart(item); shown.isEmpty() && item.clip())
            return;
        const bool overlay = item.inherits("QQuickOverlay");
        if (!dims || !item.parentItem() || overlay || isInOverlay(item))
            action(item);
        // Nor does it matter what a sheet covers, which is the last of its siblings.
        const QList<QQuickItem*> children = item.childItems();
        for (const QQuickItem* child : children) {
            for (const QQuickItem* sheet : child->childItems()) {
                if (sheet->isVisible() &&
                    QByteArray(sheet->metaObject()->className()).startsWith("InputSheet_"))
                    m_sheet = shownPart(*sheet);
            }
        }
        for (const QQuickItem* child : children) {
            if (QByteArray(child->metaObject()->className()).startsWith("LateItem_"))
                m_sheet = QRect();
            walk(*child, dims, action);
        }
    }

    static bool isInOverlay(const QQuickItem& item) {
        for (const QQuickItem* parent = &item; parent; parent = parent->parentItem()) {
            if (parent->inherits("QQuickOverlay"))
                return true;
        }
        return false;
    }

    /** 0 where nothing is told by it. */
    double leastContrast(const QQuickItem& item) const {
        const QRect shown = shownPart(item);
        if (shown.height() < item.boundingRect().height() * 0.9 || shown.width() < 4 ||
            shown.intersects(m_sheet))
            return 0;
        if (QByteArray(item.metaObject()->className()).startsWith("Symbol_"))
            return item.property("name").toString().isEmpty() ? 0 : 3;
        if (!item.inherits("QQuickText") || item.property("text").toString().trimmed().isEmpty())
            return 0;
        const auto font = item.property("font").value<QFont>();
        return font.pixelSize() >= 24 || (font.bold() && font.pixelSize() >= 19) ? 3 : 4.5;
    }

    QRect m_sheet; ///< what the walk is below
};

TEST_F(Looks, AreReadAndPressedWithEaseInEveryScreen) {
    measure("Menu, folded");
    open("Quote List");
    measure("Empty list");
    pilot->tap(QStringLiteral("Back"));
    for (const char* topic : {"art", "hope", "love", "wonder"}) {
        context().insert<Topics>()->setTopic(QLatin1String(topic));
        addQuote(QStringLiteral("Ann"), QLatin1String(topic), QStringLiteral("text"));
    }
    pilot->tap(QStringLiteral("Menu"));
    measure("Menu");
    pilot->tap(QStringLiteral("Quote List"));
    pilot->drag(*pilot->findAll(QStringLiteral("Topic: ")).at(1), {-120, 0});
    measure("Quote list");
    pilot->tap(*pilot->findAll(QStringLiteral("Topic: ")).at(0));
    pilot->tap(*pilot->findAll(QStringLiteral("Topic: ")).at(0));
    measure("Quote");
    pilot->tap(QStringLiteral("Share"));
    measure("Share sheet");
    pilot->press(Qt::Key_Escape);
    pilot->tap(QStringLiteral("Topic"));
    measure("Names to pick");
    pilot->tap(QStringLiteral("Done"));
    for (const char* style : {"UseDateWheel", "UseDateInline"}) {
        auto& settings = program.application().services.userDefaults;
        settings.setBool(QLatin1String(style), true);
        pilot->tap(QStringLiteral("Date"));
        measure(style);
        pilot->tap(QStringLiteral("Done"));
        settings.setBool(QLatin1String(style), false);
    }
    pilot->tap(QStringLiteral("Back"));
    measure("Alert");
    pilot->tap(QStringLiteral("Discard"));
    pilot->tap(QStringLiteral("Back"));
    for (const char* option : {"Settings", "Quotes by Group", "Topics", "Export", "Import"}) {
        open(option);
        measure(option);
        pilot->tap(QStringLiteral("Back"));
    }
    EXPECT_GT(measured, 900);
}

TEST_F(Looks, WindowComesBackAsLargeAsItWasLeft) {
    const auto kept = [this] {
        UserDefaults settings(home.filePath(QStringLiteral("settings/Lantern.ini")));
        return WindowPlace(settings).initialProperties();
    };
    EXPECT_FALSE(kept().contains(QStringLiteral("width")));
    pilot->resize({700, 500});
    EXPECT_TRUE(Pilot::waitFor([&] { return kept()[QStringLiteral("width")] == 700; }));
    EXPECT_EQ(kept()[QStringLiteral("height")], 500);
    EXPECT_EQ(kept()[QStringLiteral("startsMaximized")], false);
    program.application().services.userDefaults.setText(QStringLiteral("WindowWidth"),
                                                        QStringLiteral("-wide"));
    EXPECT_TRUE(Pilot::waitFor([&] { return !kept().contains(QStringLiteral("width")); }));
}

TEST_F(Looks, WideWindowKeepsTheListBesideWhatItLedTo) {
    addQuote(QStringLiteral("Ann"), QStringLiteral("a"), QStringLiteral("first"));
    addQuote(QStringLiteral("Bob"), QStringLiteral("b"), QStringLiteral("second"));
    pilot->resize({1024, 768});
    open("Quote List");
    const auto shown = [this](const char* field) {
        return pilot->find(QLatin1String(field)).property("text").toString();
    };
    const auto row = [this](int index) -> QQuickItem& {
        return *pilot->findAll(QStringLiteral("Topic: ")).at(index);
    };
    pilot->tap(row(0));
    EXPECT_EQ(shown("Author"), "Ann");
    EXPECT_GE(pilot->find(QStringLiteral("Author")).mapToScene({}).x(), 340);
    EXPECT_LE(row(1).mapToScene({row(1).width(), 0}).x(), 340 + 10);
    EXPECT_TRUE(row(0).property("marked").toBool());
    EXPECT_EQ(pilot->findAll(QStringLiteral("Back")).size(), 1);
    pilot->tap(row(1));
    EXPECT_EQ(shown("Author"), "Bob");
    EXPECT_EQ(program.navigation().depth(), 3);

    pilot->tap(QStringLiteral("Author"));
    pilot->type(QStringLiteral("!"));
    pilot->tap(row(0));
    pilot->tap(QStringLiteral("Cancel"));
    EXPECT_EQ(shown("Author"), "Bob!");
    pilot->tap(QStringLiteral("Sort"));
    pilot->tap(QStringLiteral("Discard"));
    EXPECT_EQ(program.navigation().depth(), 2);
    EXPECT_EQ(row(0).property("text"), "Topic: b");

    pilot->tap(row(1));
    pilot->resize({390, 844});
    EXPECT_EQ(rows(), QStringList());
    pilot->resize({1024, 768});
    EXPECT_EQ(rows().size(), 2);
    pilot->tap(QStringLiteral("Search quotes"));
    pilot->type(QStringLiteral("a"));
    EXPECT_EQ(rows().size(), 1);
    EXPECT_EQ(program.navigation().depth(), 2);
}

} // namespace
