#include "Platform.h"

#include "foundation/Files.h"
#include "platform/Markup.h"

#include <QFileInfo>

namespace {

MailMessage mailOf(const std::vector<ActivityItem>& items) {
    MailMessage message;
    message.body = textOf(items).value_or(QString());
    for (const ActivityItem& item : items) {
        const auto* file = std::get_if<SharedFile>(&item);
        if (!file)
            continue;
        if (const auto bytes = readOwnFile(file->path))
            message.attachments.push_back({*bytes, QStringLiteral("application/octet-stream"),
                                           QFileInfo(file->path).fileName()});
    }
    return message;
}

PrintJob printJobOf(const QString& text) {
    PrintJob job;
    job.markup = markupOf(text);
    job.jobName = QStringLiteral("Quotes");
    return job;
}

} // namespace

std::optional<QString> textOf(const std::vector<ActivityItem>& items) {
    QStringList texts;
    for (const ActivityItem& item : items) {
        if (const auto* text = std::get_if<QString>(&item))
            texts.append(*text);
    }
    return texts.isEmpty() ? std::nullopt : std::optional(texts.join(u'\n'));
}

std::unique_ptr<ActivityViewController>
makeActivityViewController(Platform& platform, std::vector<ActivityItem> items,
                           std::vector<ActivityType> excluded) {
    using Items = std::vector<ActivityItem>;
    const auto text = textOf(items);
    std::vector<Activity> activities;
    const auto offer = [&activities](ActivityType type, const QString& title, auto handler) {
        activities.push_back({type, title, std::move(handler)});
    };
    if (text)
        offer(ActivityType::CopyToPasteboard, QStringLiteral("Copy"),
              [&platform, text](const Items&) { platform.copy(*text); });
    if (text && platform.canSendText())
        offer(ActivityType::Message, QStringLiteral("Message"),
              [&platform, text](const Items&) { platform.message(*text); });
    if (platform.canSendMail())
        offer(ActivityType::Mail, QStringLiteral("Mail"),
              [&platform](const Items& shared) { platform.mail(mailOf(shared)); });
    if (text)
        offer(ActivityType::Print, QStringLiteral("Print"),
              [&platform, text](const Items&) { platform.print(printJobOf(*text)); });
    offer(ActivityType::SaveToFiles, QStringLiteral("Save to Files"),
          [&platform](const Items& shared) { platform.saveToFiles(shared); });
    return std::make_unique<ActivityViewController>(std::move(items), std::move(activities),
                                                    std::move(excluded));
}
