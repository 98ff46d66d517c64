#pragma once

#include "foundation/UserDefaults.h"

#include <QQuickWindow>
#include <QTimer>
#include <QVariantMap>

/** Keeps how large the window is, and whether it is maximized, from one start to the next. */
class WindowPlace {
public:
    explicit WindowPlace(UserDefaults& settings);
    ~WindowPlace();
    WindowPlace(const WindowPlace&) = delete;
    WindowPlace& operator=(const WindowPlace&) = delete;

    /** What the window starts with. */
    QVariantMap initialProperties() const;
    void follow(QQuickWindow& window);

private:
    void keep();

    UserDefaults& m_settings;
    QQuickWindow* m_window = nullptr;
    QTimer m_settled; ///< runs while the window is being resized
};
