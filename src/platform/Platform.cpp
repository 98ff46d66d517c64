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
makeActivityViewController(Platform& platform, LongWork& work, std::vector<ActivityItem> items,
                           const Answer& answer, std::vector<ActivityType> excluded) {
    using Items = std::vector<ActivityItem>;
    const auto text = textOf(items);
    std::vector<Activity> activities;
    const auto offer = [&activities](ActivityType type, const QString& title, auto handler) {
        activities.push_back({type, title, std::move(handler)});
    };
    if (text)
        offer(ActivityType::CopyToPasteboard, QStringLiteral("Copy"),
              [&platform, text, answer](const Items&) {
                  platform.copy(*text);
                  answer({Outcome::Done, QStringLiteral("Copied")});
              });
    if (text && platform.hasMessages())
        offer(ActivityType::Message, QStringLiteral("Message"),
              [&platform, text, answer](const Items&) { platform.message(*text, answer); });
    if (platform.canSendMail())
        offer(ActivityType::Mail, QStringLiteral("Mail"),
              [&platform, answer](const Items& shared) { platform.mail(mailOf(shared), answer); });
    if (text)
        offer(ActivityType::Print, QStringLiteral("Print"),
              [&platform, &work, text, answer](const Items&) {
                  platform.print(printJobOf(*text), work, answer);
              });
    offer(ActivityType::SaveToFiles, QStringLiteral("Save to Files"),
          [&platform, answer](const Items& shared) { platform.saveToFiles(shared, answer); });
    return std::make_unique<ActivityViewController>(std::move(items), std::move(activities),
                                                    std::move(excluded));
}
