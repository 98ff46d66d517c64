#pragma once

#include <QSettings>
#include <QString>

#include <optional>

/** The shortest decimal form of a number that reads back as the same, and never as a whole one:
 * "15.0". */
QString decimalDescription(double number);

/**
 * The user's settings, kept as text in one INI file: booleans as "true" and "false", numbers in
 * decimal. Absent keys are told apart from empty values.
 */
class UserDefaults {
public:
    /** Opens or makes the file; it and its folder become readable by their owner alone. */
    explicit UserDefaults(const QString& path);

    /** The value as it is stored; nothing when the key is absent. */
    std::optional<QString> object(const QString& key) const;

    /** The stored boolean, false when absent; a value that is no boolean is a fatal error. */
    bool boolForKey(const QString& key) const;

    /** The stored number, whole or with decimals; absent or no number is a fatal error. */
    double doubleForKey(const QString& key) const;

    void setBool(const QString& key, bool value);
    void setInteger(const QString& key, int value);
    void setDouble(const QString& key, double value);
    void setText(const QString& key, const QString& value);

    /** Writes what has changed to the file at once. */
    void synchronize();

private:
    mutable QSettings m_settings;
};
