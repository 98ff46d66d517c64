#include "DatePicker.h"

#include <QDate>
#include <QLocale>

#include <algorithm>

DatePicker::DatePicker(QObject* parent, const QString& accessibilityLabel,
                       const Environment& environment)
    : View(parent, accessibilityLabel)
    , m_environment(environment)
    , m_date(environment.now()) {}

void DatePicker::setDate(Date date) {
    m_date = date;
    Q_EMIT dateChanged();
}

void DatePicker::setStyle(Style style) {
    m_style = style;
    Q_EMIT styleChanged();
}

QString DatePicker::text() const {
    return formatDate(m_date, DateStyle::Long, m_environment);
}

QString DatePicker::order() const {
    return orderOfDate(m_environment);
}

QString DatePicker::monthTitle(int year, int month) const {
    return formatParts({year, month, 1}, QStringLiteral("yMMMM"), m_environment);
}

QString DatePicker::dayTitle(int month, int day) const {
    constexpr int leapYear = 2000; // which has all days
    return formatParts({leapYear, month, day}, QStringLiteral("MMMMd"), m_environment);
}

QStringList DatePicker::monthNames() const {
    const QLocale locale(m_environment.locale);
    QStringList names;
    for (int month = 1; month <= 12; ++month)
        names.append(locale.standaloneMonthName(month));
    return names;
}

QStringList DatePicker::weekdayNames() const {
    const QLocale locale(m_environment.locale);
    QStringList names;
    for (int weekday = 1; weekday <= 7; ++weekday)
        names.append(locale.standaloneDayName(weekday, QLocale::ShortFormat));
    return names;
}

int DatePicker::firstWeekday() const {
    return QLocale(m_environment.locale).firstDayOfWeek();
}

int DatePicker::daysInMonth(int year, int month) const {
    return QDate(year, month, 1).daysInMonth();
}

int DatePicker::weekday(int year, int month, int day) const {
    return QDate(year, month, day).dayOfWeek();
}

void DatePicker::choose(int year, int month, int day) {
    WallTime time = wallTime(m_date, m_environment);
    time.year = year;
    time.month = month;
    time.day = std::min(day, daysInMonth(year, month));
    setDate(dateFromWallTime(time, m_environment));
    Q_EMIT valueChanged();
}
