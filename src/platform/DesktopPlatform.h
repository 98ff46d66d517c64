#pragma once

#include "platform/Platform.h"

#include <QObject>
#include <QTemporaryDir>

#include <memory>
#include <vector>

class QDialog;

/**
 * A desktop that follows the free desktops' conventions: handlers of addresses, portals, xdg-email
 * and xdg-open. Its dialogs need a QApplication.
 */
class DesktopPlatform final : public Platform {
public:
    DesktopPlatform();
    ~DesktopPlatform() override;

    bool canSendText() const override;
    bool canSendMail() const override;
    bool open(const QUrl& address) override;
    void copy(const QString& text) override;
    void message(const QString& text) override;
    void mail(const MailMessage& message) override;
    void print(const PrintJob& job) override;
    void saveToFiles(const std::vector<ActivityItem>& items) override;

private:
    struct NamedFile {
        QString name;
        QByteArray bytes;
    };

    QStringList writeAttachments(const MailMessage& message);
    void askWhereToSave(std::vector<NamedFile> files);
    /** Shows a dialog over the program's window, in place of an earlier one. */
    void show(std::unique_ptr<QDialog> dialog);
    void tellFailure(const QString& description);

    QObject m_requests; ///< holds what waits for an answer
    std::unique_ptr<QDialog> m_dialog;
    /** Attachments stay until the program ends: mail programs read them when they like. */
    QTemporaryDir m_attachments;
};
