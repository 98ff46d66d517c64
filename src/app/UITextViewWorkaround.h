#pragma once

#include "foundation/ClassRuntime.h"
#include "foundation/Environment.h"

/** Holds the measure at launch that text views of old systems need, and nothing else. */
struct UITextViewWorkaround {
    /** Makes the class that they look for, where the system lacks it. */
    static void executeWorkaround(ClassRuntime& classes, const SystemVersion& version);
};
