#include "foundation/UserDefaults.h"

#include "foundation/FatalError.h"
#include "foundation/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QSettings>

#include <cmath>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(logger, "lantern.foundation")

constexpr QLatin1String trueText("true");
constexpr QLatin1String falseText("false");

/** Makes the folder of a file, and leaves it to its owner alone. */
void makePrivateFolder(const QString& path) {
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder) || !QFile::setPermissions(folder, ownerFile | QFile::ExeOwner))
        qCWarning(logger) << "The settings' folder cannot be made private:" << folder;
}

std::optional<QMap<QString, QString>> readSettings(const QString& path) {
    if (const QFileInfo file(path); file.exists() && !file.isSymLink())
        QFile::setPermissions(path, ownerFile);
    const QSettings settings(path, QSettings::IniFormat);
    if (settings.status() == QSettings::AccessError)
        return std::nullopt;
    QMap<QString, QString> texts;
    for (const QString& key : settings.allKeys()) {
        const QVariant value = settings.value(key);
        // A comma in a value that was edited by hand, without quotation marks, makes it a list.
        texts[key] = value.typeId() == QMetaType::QStringList
                         ? value.toStringList().join(QStringLiteral(", "))
                         : value.toString();
    }
    return texts;
}

bool isLetterOrDigit(QChar character) {
    return character.unicode() < 0x80 && character.isLetterOrNumber();
}

QByteArray hexadecimal(QChar character, int digits) {
    return QByteArray::number(character.unicode(), 16).toUpper().rightJustified(digits, '0');
}

QByteArray escapedKey(const QString& key) {
    QByteArray escaped;
    for (const QChar character : key) {
        if (isLetterOrDigit(character))
            escaped += char(character.unicode());
        else if (character == u'/')
            escaped += '\\';
        else if (character.unicode() <= 0xFF)
            escaped += '%' + hexadecimal(character, 2);
        else
            escaped += "%U" + hexadecimal(character, 4);
    }
    return escaped;
}

QByteArray escapedValue(const QString& value) {
    QString escaped = value.startsWith(u'@') ? QStringLiteral("@") : QString();
    bool isAfterNumber = false; // which letters and digits would continue
    for (const QChar character : value) {
        const bool isNumber =
            character.unicode() < u' ' || (isAfterNumber && isLetterOrDigit(character));
        if (isNumber)
            escaped += QStringLiteral("\\x") + QLatin1String(hexadecimal(character, 1));
        else if (character == u'"' || character == u'\\')
            escaped += QStringLiteral("\\") + character;
        else
            escaped += character;
        isAfterNumber = isNumber;
    }
    return escaped.toUtf8();
}

// As QSettings reads it. What that writes itself goes to where a link at its place leads, and if
// the disk takes only a part, nothing tells.
QByteArray iniText(const QMap<QString, QString>& texts) {
    QByteArray ini = "[General]\n";
    for (const auto& [key, text] : texts.asKeyValueRange())
        ini += escapedKey(key) + "=\"" + escapedValue(text) + "\"\n";
    return ini;
}

} // namespace

QString decimalDescription(double number) {
    const QString text = QString::number(number, 'g', QLocale::FloatingPointShortest);
    const bool isWhole = std::isfinite(number) && !text.contains(QLatin1Char('.')) &&
                         !text.contains(QLatin1Char('e'));
    return isWhole ? text + QStringLiteral(".0") : text;
}

UserDefaults::UserDefaults(const QString& path)
    : m_path(path) {
    makePrivateFolder(path);
    read();
}

UserDefaults::~UserDefaults() {
    synchronize();
}

std::optional<QString> UserDefaults::object(const QString& key) const {
    const auto text = m_texts.find(key);
    return text == m_texts.end() ? std::nullopt : std::optional(*text);
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
    m_texts[key] = value;
    m_hasChanged = true;
    QMetaObject::invokeMethod(
        &m_writer, [this] { synchronize(); }, Qt::QueuedConnection);
}

void UserDefaults::synchronize() {
    if (!m_hasChanged)
        return;
    makePrivateFolder(m_path);
    read();
    if (!m_isRead)
        return; // what the file holds must not be written over
    if (const auto failure = writeFileAtomically(m_path, iniText(m_texts), ownerFile))
        qCWarning(logger) << "The settings:" << failure->description;
    else
        m_hasChanged = false;
}

void UserDefaults::read() {
    if (m_isRead)
        return;
    auto texts = readSettings(m_path);
    m_isRead = texts.has_value();
    if (!texts) {
        qCWarning(logger) << "The settings cannot be read:" << m_path;
        return;
    }
    texts->insert(m_texts);
    m_texts = std::move(*texts);
}
