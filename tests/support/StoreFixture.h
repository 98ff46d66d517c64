#pragma once

#include "store/PersistentContainer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

/** A store in a folder of its own. */
class StoreTest : public testing::Test {
protected:
    QString folder() const { return m_folder.filePath(QStringLiteral("data")); }
    QString path() const { return folder() + QStringLiteral("/Lantern.sqlite"); }

    std::unique_ptr<PersistentContainer> open() const {
        auto container = std::make_unique<PersistentContainer>(QStringLiteral("Lantern"), folder());
        const auto error = container->loadPersistentStores();
        EXPECT_FALSE(error) << error.value_or(StoreError{}).unresolved().toStdString();
        return container;
    }

    /** Why the store does not open; all empty when it does. */
    StoreError openingError() const {
        return PersistentContainer(QStringLiteral("Lantern"), folder())
            .loadPersistentStores()
            .value_or(StoreError{});
    }

    QByteArray bytes() const {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir m_folder;
};

template <class Record>
std::vector<Record*> fetched(ManagedObjectContext& context,
                             const FetchRequest<Record>& request = {}) {
    const auto result = context.fetch(request);
    EXPECT_FALSE(result.error) << result.error.value_or(StoreError{}).unresolved().toStdString();
    return result.records;
}

template <class Record>
std::vector<Record*> fetched(ManagedObjectContext& context, const Predicate<Record>& predicate) {
    auto request = Record::fetchRequest();
    request.predicate = predicate;
    return fetched(context, request);
}

inline void save(ManagedObjectContext& context) {
    const auto error = context.save();
    EXPECT_FALSE(error) << error.value_or(StoreError{}).unresolved().toStdString();
}

inline Topics* insertTopic(ManagedObjectContext& context, const QString& topic) {
    auto* record = context.insert<Topics>();
    record->setTopic(topic);
    return record;
}

inline std::vector<QString> topics(ManagedObjectContext& context) {
    std::vector<QString> result;
    for (const auto* record : fetched<Topics>(context))
        result.push_back(record->topic().value_or(QStringLiteral("(absent)")));
    return result;
}

/** Runs the work in a process of its own, which ends with the work's result and no clean-up, and
 * returns its wait status. */
inline int inOtherProcess(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}
