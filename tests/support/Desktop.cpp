#include "Desktop.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>

namespace {

constexpr const char* programs[] = {"xdg-email", "xdg-open"};

// Written beside and moved, so that a record is seen whole.
constexpr const char* standIn = R"(#!/bin/sh
printf '%s\0' "$@" >"$HOME/records/$$" && /bin/mv "$HOME/records/$$" "$HOME/records/${0##*/}"
)";

constexpr const char* busConfiguration = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

QString recordOf(const char* program) {
    return Desktop::path("records/") + QLatin1String(program);
}

QByteArray programsFolder() {
    return Desktop::path("programs").toLocal8Bit();
}

QByteArray outputOf(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(QLatin1String(program), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        throw std::runtime_error(std::string(program) + " is missing or fails");
    return process.readAllStandardOutput();
}

} // namespace

Desktop::Desktop() {
    qputenv("HOME", m_home.path().toLocal8Bit());
    for (const auto& [variable, folder] :
         {std::pair{"XDG_CONFIG_HOME", "config"}, std::pair{"XDG_CONFIG_DIRS", "config/system"},
          std::pair{"XDG_DATA_HOME", "data"}, std::pair{"XDG_DATA_DIRS", "data/system"},
          std::pair{"XDG_CACHE_HOME", "cache"}})
        qputenv(variable, path(folder).toLocal8Bit());
    QDir().mkpath(path("records"));
    QDir().mkpath(path("data/applications"));
    QDir().mkpath(path("config"));
    for (const char* program : programs) {
        const QString folder = path("only/") + QLatin1String(program);
        for (const QString& place : {folder, path("programs")}) {
            QDir().mkpath(place);
            const QString file = place + QLatin1Char('/') + QLatin1String(program);
            write(file, standIn);
            QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
    }

    const QString socket = path("bus");
    write(path("bus.conf"), QString::fromLatin1(busConfiguration).arg(socket).toUtf8());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + socket.toLocal8Bit());
    m_bus.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_bus.start(QStringLiteral("dbus-daemon"),
                {QStringLiteral("--config-file=") + path("bus.conf"),
                 QStringLiteral("--print-address"), QStringLiteral("--nofork")});
    if (!m_bus.waitForReadyRead())
        throw std::runtime_error("no message bus");
    provideAll();
}

Desktop::~Desktop() {
    m_bus.terminate();
    m_bus.waitForFinished();
}

QString Desktop::path(const char* name) {
    return qEnvironmentVariable("HOME") + QLatin1Char('/') + QLatin1String(name);
}

void Desktop::provideOnly(const char* program) {
    qputenv("PATH", path("only/").toLocal8Bit() + program);
}

void Desktop::provideAll() {
    qputenv("PATH", programsFolder() + ":/usr/bin:/bin");
}

void Desktop::clearRecords() {
    for (const char* program : programs)
        QFile::remove(recordOf(program));
}

std::optional<QStringList> Desktop::callOf(const char* program) {
    const QString record = recordOf(program);
    if (!waitFor([&record] { return QFile::exists(record); }))
        return std::nullopt;
    QStringList arguments = QString::fromUtf8(*contents(record)).split(QChar(u'\0'));
    arguments.removeLast();
    return arguments;
}

bool Desktop::isCalled(const char* program) {
    return QTest::qWaitFor([program] { return QFile::exists(recordOf(program)); }, 300);
}

QString textOfPdf(const QString& path, const QStringList& options) {
    return QString::fromUtf8(
        outputOf("pdftotext", options + QStringList{path, QStringLiteral("-")}));
}

QImage pictureOfPdf(const QString& path) {
    return QImage::fromData(
        outputOf("pdftoppm", {QStringLiteral("-r"), QStringLiteral("72"), path}));
}

bool waitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10'000);
}
