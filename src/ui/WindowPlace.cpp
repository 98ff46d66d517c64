#include "WindowPlace.h"

#include <algorithm>

namespace {

const QString widthKey = QStringLiteral("WindowWidth");
const QString heightKey = QStringLiteral("WindowHeight");
const QString maximizedKey = QStringLiteral("WindowIsMaximized");

constexpr int largestSide = 16384; // points

} // namespace

WindowPlace::WindowPlace(UserDefaults& settings)
    : m_settings(settings) {
    m_settled.setSingleShot(true);
    m_settled.setInterval(300);
    QObject::connect(&m_settled, &QTimer::timeout, &m_settled, [this] { keep(); });
}

WindowPlace::~WindowPlace() {
    if (m_settled.isActive())
        keep();
}

QVariantMap WindowPlace::initialProperties() const {
    QVariantMap properties{
        {QStringLiteral("startsMaximized"), m_settings.boolForKey(maximizedKey)}};
    const int width = m_settings.object(widthKey).value_or(QString()).toInt();
    const int height = m_settings.object(heightKey).value_or(QString()).toInt();
    if (width > 0 && height > 0) {
        properties[QStringLiteral("width")] = std::min(width, largestSide);
        properties[QStringLiteral("height")] = std::min(height, largestSide);
    }
    return properties;
}

void WindowPlace::follow(QQuickWindow& window) {
    m_window = &window;
    const auto wait = [this] { m_settled.start(); };
    QObject::connect(&window, &QWindow::widthChanged, &m_settled, wait);
    QObject::connect(&window, &QWindow::heightChanged, &m_settled, wait);
    QObject::connect(&window, &QWindow::windowStateChanged, &m_settled, wait);
}

void WindowPlace::keep() {
    const Qt::WindowStates states = m_window->windowStates();
    if (states & (Qt::WindowFullScreen | Qt::WindowMinimized))
        return;
    const bool maximized = states & Qt::WindowMaximized;
    m_settings.setBool(maximizedKey, maximized);
    if (maximized)
        return;
    m_settings.setInteger(widthKey, m_window->width());
    m_settings.setInteger(heightKey, m_window->height());
}
