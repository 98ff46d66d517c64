#pragma once

#include "foundation/Environment.h"
#include "toolkit/View.h"

#include <QStringList>

/** Chooses a day of the Gregorian calendar in the device's time zone; the time of day stays. */
class DatePicker : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitDatePicker)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(DatePicker::Style style READ style NOTIFY styleChanged)
    Q_PROPERTY(int year READ year NOTIFY dateChanged)
    Q_PROPERTY(int month READ month NOTIFY dateChanged)
    Q_PROPERTY(int day READ day NOTIFY dateChanged)
    Q_PROPERTY(QString text READ text NOTIFY dateChanged)
    Q_PROPERTY(QString order READ order CONSTANT)
    Q_PROPERTY(QStringList monthNames READ monthNames CONSTANT)
    Q_PROPERTY(QStringList weekdayNames READ weekdayNames CONSTANT)
    Q_PROPERTY(int firstWeekday READ firstWeekday CONSTANT)

public:
    /** The numbers are those of the settings. Automatic shows as Compact. */
    enum Style { Automatic = 0, Wheels = 1, Compact = 2, Inline = 3 };
    Q_ENUM(Style)

    DatePicker(QObject* parent, const QString& accessibilityLabel, const Environment& environment);

    Date date() const { return m_date; }
    void setDate(Date date);
    Style style() const { return m_style; }
    void setStyle(Style style);
    double height() const { return 216; } ///< points, as an input view

    int year() const { return wallTime(m_date, m_environment).year; }
    int month() const { return wallTime(m_date, m_environment).month; }
    int day() const { return wallTime(m_date, m_environment).day; }
    QString text() const;             ///< the date as its field shows it, in the long style
    QString order() const;            ///< of year, month and day: "Mdy", say
    QStringList monthNames() const;   ///< January first, in the device's language
    QStringList weekdayNames() const; ///< short, Monday first
    int firstWeekday() const;         ///< 1 is Monday

    /** A number in the locale's digits. */
    Q_INVOKABLE QString number(int number) const { return formatNumber(number, m_environment); }
    /** A month with its year, and a day with its month, in the locale's order. */
    Q_INVOKABLE QString monthTitle(int year, int month) const;
    Q_INVOKABLE QString dayTitle(int month, int day) const;
    /** The number of days that a month has. */
    Q_INVOKABLE int daysInMonth(int year, int month) const;
    /** The weekday of a day; 1 is Monday. */
    Q_INVOKABLE int weekday(int year, int month, int day) const;
    /** What choosing a day does; a day past the month's end is its last. */
    Q_INVOKABLE void choose(int year, int month, int day);

Q_SIGNALS:
    void dateChanged();
    void styleChanged();
    /** The user, not the program, has changed the date. */
    void valueChanged();

private:
    const Environment& m_environment;
    Date m_date;
    Style m_style = Automatic;
};
