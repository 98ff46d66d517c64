#pragma once

#include <QList>
#include <QObject>
#include <qqml.h>

/** Tells QML of the lists of objects that controls and controllers have. */
struct ObjectList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<QObject*>)
    QML_SEQUENTIAL_CONTAINER(QObject*)
};
