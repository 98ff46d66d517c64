#pragma once

#include "foundation/ClassRuntime.h"
#include "foundation/Environment.h"
#include "foundation/MainQueue.h"
#include "foundation/UserDefaults.h"
#include "platform/Platform.h"
#include "shared/SelectionValues.h"
#include "toolkit/Keyboard.h"
#include "toolkit/LongWork.h"
#include "toolkit/Notes.h"

#include <QString>

/** What the device and the program offer to every screen, handed in where the program starts. */
struct Services {
    Environment& environment;
    UserDefaults& userDefaults;
    MainQueue& mainQueue;
    Keyboard& keyboard;
    Notes& notes;
    LongWork& longWork;
    Platform& platform;
    ClassRuntime& classes;
    SelectionValues& selection;
    QString storeFolder;
    QString temporaryFolder; ///< the program's own, readable by its user alone
};
