#include "ActivityViewController.h"

#include <algorithm>

ActivityViewController::ActivityViewController(std::vector<ActivityItem> items,
                                               std::vector<Activity> activities,
                                               std::vector<ActivityType> excludedActivityTypes)
    : m_items(std::move(items))
    , m_excluded(std::move(excludedActivityTypes))
    , m_activities(std::move(activities)) {
    std::erase_if(m_activities, [this](const Activity& activity) {
        return std::ranges::find(m_excluded, activity.type) != m_excluded.end();
    });
}

std::vector<ActivityType> ActivityViewController::activityTypes() const {
    std::vector<ActivityType> types;
    types.reserve(m_activities.size());
    for (const Activity& activity : m_activities)
        types.push_back(activity.type);
    return types;
}

QStringList ActivityViewController::activityTitles() const {
    QStringList titles;
    for (const Activity& activity : m_activities)
        titles.append(activity.title);
    return titles;
}

void ActivityViewController::choose(int activity) {
    const auto handler = m_activities.at(std::size_t(activity)).handler;
    const auto items = m_items;
    dismiss();
    handler(items);
}
