#pragma once

#include "app/FetchOrLog.h"
#include "names/NameRecordList.h"
#include "toolkit/AlertController.h"
#include "toolkit/TextInput.h"

#include <optional>
#include <vector>

/** Whether a name is entered; says in an alert when none is. A name of blanks is one. */
template <class Record>
bool isNameEntered(ViewController& form, const QString& name, const char* canceledAction) {
    const QLatin1String noun(NameKind<Record>::noun);
    if (name.isEmpty()) {
        presentAlert(form,
                     QStringLiteral("%1 %2 Canceled").arg(QLatin1String(canceledAction), noun),
                     QStringLiteral("%1 Not Entered").arg(noun));
    }
    return !name.isEmpty();
}

/** Saves, and says so; a failure is logged alone. */
void saveNames(ManagedObjectContext& context, const AppDelegate& application);

/** Adds a name as it was typed, also where there is one like it, and goes back to the list. */
template <class Record>
void addName(ViewController& form, AppDelegate& application, const QString& name,
             ManagedObjectContext*& managedObjectContext) {
    if (!isNameEntered<Record>(form, name, "Insert New"))
        return;
    ManagedObjectContext& context = application.persistentContainer().viewContext();
    managedObjectContext = &context;
    (context.insert<Record>()->*NameKind<Record>::set)(name);
    saveNames(context, application);
    qCInfo(lcNames) << "Back button Clicked";
    form.performSegue(NameKind<Record>::unwindToList, &form);
}

/** The records whose name a form edits. */
template <class Record>
struct NameEdit {
    QString oldName;
    ManagedObjectContext* managedObjectContext = nullptr; ///< from a save on
    qsizetype ResultsCount = 0;
    std::optional<std::vector<Record*>> Results;
};

/** Fills a form with the name that the list before it has chosen. */
template <class Record>
NameEdit<Record> beginNameEdit(TextField& field, const AppDelegate& application) {
    NameEdit<Record> edit;
    edit.oldName = application.services.selection.*NameKind<Record>::chosen;
    field.setText(edit.oldName);
    styleFormField(field);
    return edit;
}

/** Gives the first record of the old name its new one, and goes back to the list. Says in an alert
 * when no record has the old name. */
template <class Record>
void saveNameEdit(ViewController& form, AppDelegate& application, NameEdit<Record>& edit,
                  const QString& name) {
    if (!isNameEntered<Record>(form, name, "Edit"))
        return;
    ManagedObjectContext& context = application.persistentContainer().viewContext();
    edit.managedObjectContext = &context;
    auto request = Record::fetchRequest();
    request.returnsObjectsAsFaults = false;
    request.predicate = NameKind<Record>::name == edit.oldName;
    auto found = context.fetch(request);
    if (!found.error) {
        edit.ResultsCount = qsizetype(found.records.size());
        edit.Results = std::move(found.records);
    }
    if (!edit.Results || edit.Results->empty()) {
        const QString noun = QLatin1String(NameKind<Record>::noun);
        presentAlert(form, QStringLiteral("Edit %1 Canceled").arg(noun),
                     QStringLiteral("\"%1\" is no longer in the list").arg(edit.oldName.left(200)));
        return;
    }
    (edit.Results->front()->*NameKind<Record>::set)(name);
    saveNames(context, application);
    form.performSegue(NameKind<Record>::unwindToList, &form);
}
