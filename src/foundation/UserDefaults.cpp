#include "foundation/UserDefaults.h"

#include "foundation/FatalError.h"
#include "foundation/Files.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

#include <cmath>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(logger, "lantern.foundation")

constexpr QLatin1String trueText("true");
constexpr QLatin1String falseText("false");

/** Makes the folder of a file, and leaves it to its owner alone. */
void makePrivateFolder(const QString& path) {
    const QString folder = QFileInfo(path).absolutePath();
    if (makeOwnFolder(folder) != 0 || !QFile::setPermissions(folder, ownerFile | QFile::ExeOwner))
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

/** The file that QSettings makes of the texts; nothing when the disk did not take all of it. */
std::optional<QByteArray> iniFile(const QMap<QString, QString>& texts, const QString& path) {
    // A draft, since QSettings writes to where a link at its place leads, and does not tell when
    // the disk refuses the last bytes. Of the draft itself it would remember what it has written.
    const QTemporaryDir folder(QFileInfo(path).path() + QStringLiteral("/.Lantern-XXXXXX"));
    const QString draft = folder.filePath(QStringLiteral("draft.ini"));
    const QString copy = folder.filePath(QStringLiteral("copy.ini"));
    {
        QSettings settings(draft, QSettings::IniFormat);
        for (const auto& [key, text] : texts.asKeyValueRange())
            settings.setValue(key, text);
    }
    if (!QFile::copy(draft, copy) || readSettings(copy) != texts)
        return std::nullopt;
    return readOwnFile(copy);
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

std::optional<QString> UserDefaults::textForKey(const QString& key) const {
    const auto value = object(key);
    bool isNumber = false;
    value.value_or(QString()).toDouble(&isNumber);
    if (isNumber || value == trueText || value == falseText)
        fatalError(QStringLiteral("The setting %1 is not a text: %2").arg(key, *value));
    return value;
}

bool UserDefaults::boolForKey(const QString& key) const {
    static const QRegularExpression isTrue(QStringLiteral("^\\s*[+-]?0*[YyTt1-9]"));
    return isTrue.match(object(key).value_or(QString())).hasMatch();
}

bool UserDefaults::strictBoolForKey(const QString& key) const {
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

bool UserDefaults::synchronize() {
    if (!m_hasChanged)
        return true;
    makePrivateFolder(m_path);
    read();
    if (!m_isRead)
        return false; // what the file holds must not be written over
    const auto file = iniFile(m_texts, m_path);
    const auto failure = file ? writeFileAtomically(m_path, *file, ownerFile)
                              : WriteFailure{QStringLiteral("A draft cannot be written.")};
    if (failure)
        qCWarning(logger) << "The settings:" << failure->description;
    else
        m_hasChanged = false;
    return !failure;
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
