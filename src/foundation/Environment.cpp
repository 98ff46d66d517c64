#include "foundation/Environment.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTimeZone>

#include <memory>
#include <unicode/locid.h>
#include <unicode/timezone.h>

namespace {

Q_LOGGING_CATEGORY(logger, "lantern.foundation")

bool isKnown(const QByteArray& zone) {
    const std::unique_ptr<icu::TimeZone> made(icu::TimeZone::createTimeZone(zone.constData()));
    return *made != icu::TimeZone::getUnknown();
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/** The zone that a file of the time zone database describes, by its place or its bytes; empty when
 * it describes none of them. */
QByteArray zoneOfFile(const QString& path) {
    const QString place = QFileInfo(path).canonicalFilePath();
    const QString database = QStringLiteral("/zoneinfo/");
    const qsizetype begin = place.indexOf(database);
    if (begin >= 0) {
        QByteArray zone = place.sliced(begin + database.size()).toLatin1();
        if (zone.startsWith("posix/"))
            zone.remove(0, 6);
        if (isKnown(zone))
            return zone;
    }
    const QByteArray bytes = bytesOf(place);
    for (const QByteArray& zone : QTimeZone::availableTimeZoneIds()) {
        const QString file = QStringLiteral("/usr/share/zoneinfo/") + QString::fromLatin1(zone);
        if (!bytes.isEmpty() && QFileInfo(file).size() == bytes.size() && bytesOf(file) == bytes)
            return zone;
    }
    return {};
}

/** What TZ names, where it is set; else the device's zone. */
QByteArray systemTimeZone() {
    QByteArray name = qgetenv("TZ");
    if (name.startsWith(':'))
        name.remove(0, 1);
    return name.startsWith('/') ? zoneOfFile(QFile::decodeName(name))
                                : QTimeZone::systemTimeZoneId();
}

/** The device's time zone by an identifier that ICU knows; a rule of the user's own, as POSIX
 * allows, becomes the nearest zone. */
QString timeZoneIdentifier() {
    const QByteArray identifier = systemTimeZone();
    if (isKnown(identifier))
        return QString::fromLatin1(identifier);
    const std::unique_ptr<icu::TimeZone> nearest(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString name;
    nearest->getID(name);
    const QString text(reinterpret_cast<const QChar*>(name.getBuffer()), name.length());
    qCWarning(logger) << "The time zone" << qgetenv("TZ") << identifier << "is taken for" << text;
    return text;
}

/** The locale in which the user wants dates. */
QString localeOfDates() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const QByteArray name = qgetenv(variable);
        if (name.isEmpty())
            continue;
        if (name == "C" || name == "POSIX" || name.startsWith("C."))
            return QStringLiteral("en_US_POSIX");
        return QString::fromLatin1(icu::Locale::createCanonical(name.constData()).getName());
    }
    return QString::fromLatin1(icu::Locale::getDefault().getName());
}

} // namespace

Environment Environment::ofThisDevice() {
    const QString locale = localeOfDates();
    return {
        .now = [] { return std::chrono::floor<Date::duration>(std::chrono::system_clock::now()); },
        .locale = locale.isEmpty() ? QStringLiteral("en") : locale,
        .timeZone = timeZoneIdentifier()};
}
