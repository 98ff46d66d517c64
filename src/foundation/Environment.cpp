#include "foundation/Environment.h"

#include <QLoggingCategory>
#include <QTimeZone>

#include <memory>
#include <unicode/locid.h>
#include <unicode/timezone.h>

namespace {

Q_LOGGING_CATEGORY(logger, "lantern.foundation")

/** The device's time zone by an identifier that ICU knows; a rule of the user's own, as POSIX
 * allows, becomes the nearest zone. */
QString timeZoneIdentifier() {
    const QByteArray identifier = QTimeZone::systemTimeZoneId();
    const std::unique_ptr<icu::TimeZone> zone(
        icu::TimeZone::createTimeZone(identifier.constData()));
    if (*zone != icu::TimeZone::getUnknown())
        return QString::fromLatin1(identifier);
    const std::unique_ptr<icu::TimeZone> nearest(icu::TimeZone::detectHostTimeZone());
    icu::UnicodeString name;
    nearest->getID(name);
    const QString text(reinterpret_cast<const QChar*>(name.getBuffer()), name.length());
    qCWarning(logger) << "The time zone" << identifier << "is taken for" << text;
    return text;
}

} // namespace

Environment Environment::ofThisDevice() {
    const QString locale = QString::fromLatin1(icu::Locale::getDefault().getName());
    return {
        .now = [] { return std::chrono::floor<Date::duration>(std::chrono::system_clock::now()); },
        .locale = locale.isEmpty() ? QStringLiteral("en") : locale,
        .timeZone = timeZoneIdentifier()};
}
