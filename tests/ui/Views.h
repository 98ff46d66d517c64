#pragma once

#include "store/Records.h"
#include "support/FakePlatform.h"
#include "support/Pilot.h"
#include "toolkit/NavigationController.h"
#include "ui/Program.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>

inline QStringList warnings; // of QML and the program, since the test began

inline void keepWarnings(QtMsgType type, const QMessageLogContext& /*context*/,
                         const QString& message) {
    if (type != QtInfoMsg && type != QtDebugMsg)
        warnings.append(message);
}

/** The whole program in its real window, with a store of its own. These tests wait for
 * animations, and take some seconds for that. */
class Views : public testing::Test {
protected:
    Views() {
        qInstallMessageHandler(keepWarnings);
        if (!program.launch())
            throw std::runtime_error(warnings.join(QLatin1Char('\n')).toStdString());
        pilot.emplace(program.quickWindow());
        pilot->settle();
    }
    ~Views() override {
        EXPECT_EQ(warnings.join(QLatin1Char('\n')).toStdString(), "");
        warnings.clear();
        qInstallMessageHandler(nullptr);
    }

    ManagedObjectContext& context() {
        return program.application().persistentContainer().viewContext();
    }

    void addQuote(const QString& author, const QString& category, const QString& text) {
        Event& quote = *context().insert<Event>();
        quote.setAuthor(author);
        quote.setCategory(category);
        quote.setSource(QStringLiteral("Source"));
        quote.setQuote(text);
        quote.setTimestamp(Date(std::chrono::milliseconds(1'600'000'000'000)));
        program.application().saveContext();
    }

    std::size_t quoteCount() { return context().fetch(Event::fetchRequest()).records.size(); }

    /** Opens a screen from the menu. */
    template <class Controller = ViewController>
    Controller& open(const char* option) {
        pilot->tap(QStringLiteral("Menu"));
        pilot->tap(QLatin1String(option));
        return top<Controller>();
    }

    template <class Controller = ViewController>
    Controller& top() {
        auto* controller = qobject_cast<Controller*>(program.navigation().topViewController());
        if (!controller)
            throw std::runtime_error("another screen is on top");
        return *controller;
    }

    QStringList rows(const char* start = "Topic: ") {
        QStringList names;
        for (const QQuickItem* row : pilot->findAll(QLatin1String(start)))
            names.append(row->property("text").toString());
        return names;
    }

    QTemporaryDir home;
    FakePlatform platform;
    Program program{{home.filePath(QStringLiteral("store")),
                     home.filePath(QStringLiteral("settings/Lantern.ini"))},
                    Environment{[] {
                                    return Date(std::chrono::milliseconds(1'614'600'000'000));
                                }, // 2021-03-01 12:00 UTC
                                QStringLiteral("en_US"), QStringLiteral("UTC")},
                    platform};
    std::optional<Pilot> pilot;
};
