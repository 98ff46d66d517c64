#pragma once

#include "toolkit/ActivityViewController.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

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

/** What the system offers beside the program's own window. None of it waits for the user: dialogs
 * and other programs open, and the call returns. */
class Platform {
public:
    Platform() = default;
    virtual ~Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    virtual bool canSendText() const = 0;
    virtual bool canSendMail() const = 0;
    /** Opens an address with the system's handler for it. False when there is nothing to open it
     * with, or the address has no scheme. */
    virtual bool open(const QUrl& address) = 0;
    /** Puts a text on the clipboard. */
    virtual void copy(const QString& text) = 0;
    /** Opens the user's program for text messages with a text to send. */
    virtual void message(const QString& text) = 0;
    /** Opens the user's mail program with a message to send. */
    virtual void mail(const MailMessage& message) = 0;
    /** Opens the print dialog. */
    virtual void print(const PrintJob& job) = 0;
    /** Asks where to save, and saves there: the texts together as one file, and each file. */
    virtual void saveToFiles(const std::vector<ActivityItem>& items) = 0;
};

/** The texts among the items, a line each; nothing when there is none. */
std::optional<QString> textOf(const std::vector<ActivityItem>& items);

/** A share sheet with the activities that the platform has for these items. */
std::unique_ptr<ActivityViewController>
makeActivityViewController(Platform& platform, std::vector<ActivityItem> items,
                           std::vector<ActivityType> excluded = {});
