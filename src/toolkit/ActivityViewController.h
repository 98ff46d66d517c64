#pragma once

#include "toolkit/ViewController.h"

#include <QStringList>

#include <functional>
#include <variant>
#include <vector>

/** What can be done with what is shared. No system has them all. */
enum class ActivityType {
    CopyToPasteboard,
    Message,
    Mail,
    Print,
    SaveToFiles,
    AirDrop,
    AddToReadingList,
    MarkupAsPDF,
    PostToFacebook,
    PostToTwitter,
};

struct SharedFile {
    QString path;
};

/** A text, or a file by its path. */
using ActivityItem = std::variant<QString, SharedFile>;

struct Activity {
    ActivityType type;
    QString title;
    std::function<void(const std::vector<ActivityItem>&)> handler;
};

/** The share sheet: items, and the activities to choose from for them. */
class ActivityViewController : public ViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Controllers make their share sheets")
    Q_PROPERTY(QStringList activityTitles READ activityTitles CONSTANT)

public:
    /** Offers those of the activities that are not of an excluded type. */
    ActivityViewController(std::vector<ActivityItem> items, std::vector<Activity> activities,
                           std::vector<ActivityType> excludedActivityTypes);

    const std::vector<ActivityItem>& items() const { return m_items; }
    const std::vector<ActivityType>& excludedActivityTypes() const { return m_excluded; }
    std::vector<ActivityType> activityTypes() const;
    QStringList activityTitles() const;

    /** The sheet is gone before the activity runs. */
    Q_INVOKABLE void choose(int activity);
    Q_INVOKABLE void cancel() { dismiss(); }

private:
    std::vector<ActivityItem> m_items;
    std::vector<ActivityType> m_excluded;
    std::vector<Activity> m_activities;
};
