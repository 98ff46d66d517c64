#pragma once

#include "app/AppDelegate.h"
#include "app/FetchOrLog.h"
#include "app/NameRecords.h"
#include "app/Undo.h"
#include "foundation/FatalError.h"
#include "names/NameKind.h"
#include "shared/CommonLook.h"
#include "toolkit/TableViewController.h"

#include <type_traits>
#include <vector>

Q_DECLARE_LOGGING_CATEGORY(lcNames)

/** A count over the rows, on a grey ground. */
Label* makeCountHeader(const QString& caption, std::size_t count);

/** The record of a row; a row outside the list is a fatal error. */
template <class Record>
Record& recordAt(const std::vector<Record*>& records, int row) {
    if (row < 0 || std::size_t(row) >= records.size())
        fatalError(QStringLiteral("The list of names has no row %1").arg(row));
    return *records[std::size_t(row)];
}

/** The records of author or source names: what the two lists of them have in common. */
template <class Record>
class NameRecordList : public SharedTableScreen {
public:
    NameRecordList(TableViewController& screen, AppDelegate& application, QString callingScreen,
                   QString countCaption)
        : context(application.persistentContainer().viewContext())
        , m_screen(screen)
        , m_application(application)
        , m_callingScreen(std::move(callingScreen))
        , m_countCaption(std::move(countCaption)) {
        screen.setShared(*this);
        QObject::connect(&application.services.notes, &Notes::undone, &screen, [this] { load(); });
    }

    ManagedObjectContext& context;
    std::vector<Record*> records;
    QStringList namesOfQuotes;
    QStringList presentNames; ///< of the records of sources that have one
    ManagedObjectContext* managedObjectContext = nullptr;

    /** Where there is no record yet, makes one of each name that the quotes have. */
    void viewDidLoad() override {
        m_application.services.selection.callingScreen = m_callingScreen;
        load();
        if (!records.empty())
            return;
        namesOfQuotes = namesOfAllQuotes(context, NameKind<Record>::ofQuotes);
        insertNames<Record>(context, namesOfQuotes);
        load();
    }

    void viewWillAppear() override { load(); }

    void load() {
        managedObjectContext = &context;
        records = sortedRecords<Record>(context, {{NameKind<Record>::name, true}}, lcNames);
        if constexpr (std::is_same_v<Record, Sources>) {
            presentNames.clear();
            for (const Record* record : records) {
                if (const auto name = record->name())
                    presentNames.append(*name);
            }
        }
        m_screen.tableView()->reloadData();
    }

    /** Shows a name in a row. */
    void show(int row, TableViewCell& cell, Label& nameLabel) const {
        styleRow(cell);
        nameLabel.setText(nameAt(row));
    }

    int numberOfRowsInSection(int /*section*/) const override { return int(records.size()); }

    Label* viewForHeaderInSection(int /*section*/) override {
        return makeCountHeader(m_countCaption, records.size());
    }

    void didSelectRowAtIndexPath(int row) override {
        m_application.services.selection.*NameKind<Record>::chosen = nameAt(row);
    }

    bool canEditRowAtIndexPath(int /*row*/) const override { return true; }

    std::vector<ContextualAction>
    trailingSwipeActionsConfigurationForRowAtIndexPath(int row) override {
        return {{QStringLiteral("delete"), true, [this, row] { deleteRecord(row); }}};
    }

    void commitEditingStyle(EditingStyle style, int row) override {
        if (style == EditingStyle::Delete)
            m_screen.tableView()->deleteRow(row);
    }

private:
    QString nameAt(int row) const {
        return (recordAt(records, row).*NameKind<Record>::get)().value_or(QLatin1String(""));
    }

    void deleteRecord(int row) {
        Record& record = recordAt(records, row);
        context.deleteObject(record);
        m_application.saveContext();
        records.erase(records.begin() + row);
        m_screen.tableView()->deleteRow(row);
        offerUndo(m_application, record, QLatin1String(NameKind<Record>::noun),
                  (record.*NameKind<Record>::get)());
    }

    TableViewController& m_screen;
    AppDelegate& m_application;
    QString m_callingScreen;
    QString m_countCaption;
};
