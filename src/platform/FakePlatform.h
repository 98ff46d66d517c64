#pragma once

#include "platform/Platform.h"

#include <QList>

/** A device for tests and tours: it can do everything, and keeps what it is asked for. */
class FakePlatform final : public Platform {
public:
    bool canSendText() const override { return sendsText; }
    bool canSendMail() const override { return sendsMail; }
    bool open(const QUrl& address) override {
        opened.append(address);
        return true;
    }
    void copy(const QString& text) override { copied.append(text); }
    void message(const QString& text) override { messages.append(text); }
    void mail(const MailMessage& message) override { mails.push_back(message); }
    void print(const PrintJob& job) override { printed.push_back(job); }
    void saveToFiles(const std::vector<ActivityItem>& items) override { saved.push_back(items); }

    bool sendsText = true;
    bool sendsMail = true;
    QList<QUrl> opened;
    QStringList copied;
    QStringList messages;
    std::vector<MailMessage> mails;
    std::vector<PrintJob> printed;
    std::vector<std::vector<ActivityItem>> saved;
};
