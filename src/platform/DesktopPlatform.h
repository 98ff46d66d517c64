#pragma once

#include "platform/DesktopFileChooser.h"
#include "platform/Platform.h"

#include <QObject>

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
    bool hasMessages() const override;
    void open(const QUrl& address, const Answer& answer) override;
    void copy(const QString& text) override;
    void message(const QString& text, const Answer& answer) override;
    void mail(const MailMessage& message, const Answer& answer) override;
    void print(const PrintJob& job, LongWork& work, const Answer& answer) override;
    void saveToFiles(const std::vector<ActivityItem>& items, const Answer& answer) override;

private:
    struct NamedFile {
        QString name;
        QByteArray bytes;
    };

    void askWhereToSave(std::vector<NamedFile> files, Outcome::Kind kind, const Answer& answer);
    /** Shows a dialog over the program's window, in place of an earlier one. */
    void show(std::unique_ptr<QDialog> dialog);

    DesktopFileChooser m_fileChooser;
    QObject m_requests; ///< holds what waits for an answer
    std::unique_ptr<QDialog> m_dialog;
};
