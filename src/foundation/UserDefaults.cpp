#include "foundation/UserDefaults.h"

#include "foundation/FatalError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QLoggingCategory>

#include <cmath>

namespace {

Q_LOGGING_CATEGORY(logger, "lantern.foundation")

constexpr QLatin1String trueText("true");
constexpr QLatin1String falseText("false");

// QSettings keeps the permissions of the file that it finds.
QString madePrivate(const QString& path) {
    constexpr auto ownerFile = QFile::ReadOwner | QFile::WriteOwner;
    const QString folder = QFileInfo(path).absolutePath();
    QFile file(path);
    if (!QDir().mkpath(folder) || !QFile::setPermissions(folder, ownerFile | QFile::ExeOwner) ||
        !file.open(QFile::Append, ownerFile) || !file.setPermissions(ownerFile))
        qCWarning(logger) << "The settings file cannot be made private:" << path
                          << file.errorString();
    return path;
}

} // namespace

QString decimalDescription(double number) {
    const QString text = QString::number(number, 'g', QLocale::FloatingPointShortest);
    const bool isWhole = std::isfinite(number) && !text.contains(QLatin1Char('.')) &&
                         !text.contains(QLatin1Char('e'));
    return isWhole ? text + QStringLiteral(".0") : text;
}

UserDefaults::UserDefaults(const QString& path)
    : m_settings(madePrivate(path), QSettings::IniFormat) {}

std::optional<QString> UserDefaults::object(const QString& key) const {
    if (!m_settings.contains(key))
        return std::nullopt;
    const QVariant value = m_settings.value(key);
    // A comma in a value that was edited by hand, without quotation marks, makes it a list.
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList().join(QStringLiteral(", "));
    return value.toString();
}

bool UserDefaults::boolForKey(const QString& key) const {
    const QString value = object(key).value_or(falseText);
    if (value != trueText && value != falseText)
        fatalError(QStringLiteral("The setting %1 is not a boolean: %2").arg(key, value));
    return value == trueText;
}

double UserDefaults::doubleForKey(const QString& key) const {
    const QString value = object(key).value_or(QString());
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        fatalError(QStringLiteral("The setting %1 is not a number: %2").arg(key, value));
    return number;
}

void UserDefaults::setInteger(const QString& key, int value) {
    setText(key, QString::number(value));
}

void UserDefaults::setDouble(const QString& key, double value) {
    setText(key, decimalDescription(value));
}

void UserDefaults::setBool(const QString& key, bool value) {
    setText(key, value ? trueText : falseText);
}

void UserDefaults::setText(const QString& key, const QString& value) {
    m_settings.setValue(key, value);
}

void UserDefaults::synchronize() {
    m_settings.sync();
    if (m_settings.status() != QSettings::NoError)
        qCWarning(logger) << "The settings cannot be written:" << m_settings.fileName();
}
