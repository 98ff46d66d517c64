#pragma once

#include "toolkit/ActivityViewController.h"
#include "toolkit/LongWork.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct MailAttachment {
    QByteArray data;
    QString mimeType;
    QString fileName;
};

/** A mail as its composer opens; the user edits and sends it. */
struct MailMessage {
    QStringList recipients;
    QString subject;
    QString body;
    bool isHtml = false; ///< of the body; mail programs that take plain text get it without markup
    std::vector<MailAttachment> attachments;
};

/** Something to print on pages of the user's choice. */
struct PrintJob {
    QString markup;
    double insets = 72; ///< points from each edge of each page to the text
    QString jobName;
};

/** What came of something that the system was asked for. */
struct Outcome {
    enum Kind { Done, Cancelled, NoProgram, Failed };

    Kind kind = Done;
    QString text = {}; ///< for the user: why it failed, or what was done that nothing else shows
};

using Answer = std::function<void(const Outcome&)>;

/** What the system offers beside the program's own window. None of it waits for the user: dialogs
 * and other programs open, and the call returns. The answer comes when it is known, which it may be
 * at once; where the user does not come back to a dialog or program, never. */
class Platform {
public:
    Platform() = default;
    virtual ~Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    /** Whether a text can be sent to somebody, in whatever way. */
    virtual bool canSendText() const = 0;
    /** Whether there is a program for text messages. */
    virtual bool hasMessages() const = 0;
    virtual bool canSendMail() const = 0;
    /** Opens an address with the system's handler for it. */
    virtual void open(const QUrl& address, const Answer& answer) = 0;
    /** Puts a text on the clipboard. */
    virtual void copy(const QString& text) = 0;
    /** Opens the user's program for text messages with a text to send. */
    virtual void message(const QString& text, const Answer& answer) = 0;
    /** Opens the user's mail program with a message to send. */
    virtual void mail(const MailMessage& message, const Answer& answer) = 0;
    /** Opens the print dialog; what it is told to print is printed as long work. */
    virtual void print(const PrintJob& job, LongWork& work, const Answer& answer) = 0;
    /** Asks where to save, and saves there: the texts together as one file, and each file. */
    virtual void saveToFiles(const std::vector<ActivityItem>& items, const Answer& answer) = 0;
};

/** The texts among the items, a line each; nothing when there is none. */
std::optional<QString> textOf(const std::vector<ActivityItem>& items);

/** A share sheet with the activities that the platform has for these items. */
std::unique_ptr<ActivityViewController>
makeActivityViewController(Platform& platform, LongWork& work, std::vector<ActivityItem> items,
                           const Answer& answer, std::vector<ActivityType> excluded = {});
