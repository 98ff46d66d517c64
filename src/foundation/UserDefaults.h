#pragma once

#include <QMap>
#include <QObject>
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
    /** Reads the file; it and its folder become readable by their owner alone. A link at its place
     * is read, and replaced by a file when settings change. */
    explicit UserDefaults(const QString& path);
    /** Writes what has changed. */
    ~UserDefaults();

    /** The value as text; nothing when the key is absent. */
    std::optional<QString> object(const QString& key) const;

    /** The stored text; nothing when the key is absent. A boolean or a number is a fatal error. */
    std::optional<QString> textForKey(const QString& key) const;

    /** The stored boolean as the platform reads it: true for what begins with a Y, a T (or the
     * small letters) or a number that is not zero, false for all else and when absent. */
    bool boolForKey(const QString& key) const;

    /** The stored boolean, false when absent; a value that is no boolean is a fatal error. */
    bool strictBoolForKey(const QString& key) const;

    /** The stored number, whole or with decimals; absent or no number is a fatal error. */
    double doubleForKey(const QString& key) const;

    /** What is set is on disk when the event loop is next reached. */
    void setBool(const QString& key, bool value);
    void setInteger(const QString& key, int value);
    void setDouble(const QString& key, double value);
    void setText(const QString& key, const QString& value);

    /** Writes what has changed to the file at once. What cannot be written is kept for later, and
     * the answer is false. */
    bool synchronize();

private:
    void read();

    QString m_path;
    QMap<QString, QString> m_texts;
    bool m_isRead = false; ///< until the file could be read, what is set here is not all
    bool m_hasChanged = false;
    QObject m_writer;
};
