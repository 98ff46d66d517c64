#pragma once

#include "foundation/Files.h"
#include "platform/Platform.h"

#include <QStringList>

#include <variant>

/**
 * Writes the attachments of a message, and answers their paths. They are their user's alone, and
 * outlive the program, since mail programs read them when they like.
 */
std::variant<QStringList, WriteFailure> writeAttachments(const MailMessage& message);

/** Removes the attachments of messages that were written more than a week ago. */
void sweepAttachments();
