#pragma once

#include <QtGlobal>

/** How much a test does: what the environment variable says, else what fits a daily run. */
inline int effort(const char* variable, int usual) {
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(variable, &isNumber);
    return isNumber ? value : usual;
}
