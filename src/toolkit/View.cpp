#include "View.h"

#include <utility>

namespace {
double currentDuration = 0;
}

View::View(QObject* parent, const QString& accessibilityLabel)
    : QObject(parent)
    , m_accessibilityLabel(accessibilityLabel) {}

void View::animate(double seconds, const std::function<void()>& changes) {
    const double outer = std::exchange(currentDuration, seconds);
    changes();
    currentDuration = outer;
}

void View::setHidden(bool hidden) {
    if (hidden == m_hidden)
        return;
    m_hidden = hidden;
    m_hidingDuration = currentDuration;
    Q_EMIT hiddenChanged();
}

void View::setCornerRadius(double radius) {
    m_cornerRadius = radius;
    Q_EMIT lookChanged();
}

void View::setBorderWidth(double width) {
    m_borderWidth = width;
    Q_EMIT lookChanged();
}

void View::setBorderColor(const Color& color) {
    m_borderColor = color;
    Q_EMIT lookChanged();
}

void View::setBackgroundColor(const Color& color) {
    m_backgroundColor = color;
    Q_EMIT lookChanged();
}
