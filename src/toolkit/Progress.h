#pragma once

#include <QtGlobal>

/** Counts how much of some work is done. */
struct Progress {
    qint64 totalUnitCount = 0;
    qint64 completedUnitCount = 0;

    /** 0 to 1. Where the total is not known, anything that is done counts as all of it. */
    double fractionCompleted() const {
        if (totalUnitCount <= 0)
            return completedUnitCount > 0 ? 1 : 0;
        return qBound(0.0, double(completedUnitCount) / double(totalUnitCount), 1.0);
    }
};
