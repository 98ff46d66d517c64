#pragma once

#include "platform/Platform.h"

#include <QObject>

/**
 * Starts another program, which may outlive this one, and answers how it has ended. The failure is
 * what to tell the user then. While the receiver lives, the answer comes.
 */
void launch(const QString& program, const QStringList& arguments, const QString& failure,
            QObject* receiver, const Answer& answer);
