#pragma once

#include "app/AppDelegate.h"

/** Offers for some seconds to bring back a record that has just been deleted and saved: as it was,
 * and on disk before any list shows it. The note names its kind and how it begins. */
void offerUndo(AppDelegate& application, ManagedObject& record, const QString& kind,
               const std::optional<QString>& text, std::function<void()> restored = nullptr);
