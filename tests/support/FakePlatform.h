#pragma once

#include "platform/Platform.h"

#include <QList>

/** A device for tests and tours: it can do everything, and keeps what it is asked for. All that it
 * answers has the same outcome. */
class FakePlatform final : public Platform {
public:
    bool canSendText() const override { return sendsText; }
    bool hasMessages() const override { return sendsText; }
    bool canSendMail() const override { return sendsMail; }
    void open(const QUrl& address, const Answer& answer) override {
        opened.append(address);
        answer(outcome);
    }
    void copy(const QString& text) override { copied.append(text); }
    void message(const QString& text, const Answer& answer) override {
        messages.append(text);
        answer(outcome);
    }
    void mail(const MailMessage& message, const Answer& answer) override {
        mails.push_back(message);
        answer(outcome);
    }
    void print(const PrintJob& job, LongWork& /*work*/, const Answer& answer) override {
        printed.push_back(job);
        answer(outcome);
    }
    void saveToFiles(const std::vector<ActivityItem>& items, const Answer& answer) override {
        saved.push_back(items);
        answer(outcome);
    }

    bool sendsText = true;
    bool sendsMail = true;
    Outcome outcome;
    QList<QUrl> opened;
    QStringList copied;
    QStringList messages;
    std::vector<MailMessage> mails;
    std::vector<PrintJob> printed;
    std::vector<std::vector<ActivityItem>> saved;
};
