#include "Undo.h"

#include <utility>

void offerUndo(AppDelegate& application, ManagedObject& record, const QString& kind,
               const std::optional<QString>& text, std::function<void()> restored) {
    const QString beginning = text.value_or(QString()).left(200).simplified();
    const QString note = beginning.isEmpty()
                             ? QStringLiteral("%1 deleted").arg(kind)
                             : QStringLiteral("%1 deleted: %2").arg(kind, beginning);
    application.services.notes.offerUndo(
        note, [&application, &record, restored = std::move(restored)] {
            application.persistentContainer().viewContext().restoreObject(record);
            application.saveContext();
            if (restored)
                restored();
        });
}
