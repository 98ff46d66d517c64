#include "Launch.h"

#include <QProcess>

#include <set>
#include <unistd.h>

namespace {

/** How xdg-open and xdg-email end where the program is missing that they would start. */
constexpr int exitOfMissingProgram = 3;

/** The programs that have not ended. To delete one would end it, so none is, even when this program
 * ends. */
std::set<QProcess*>& running() {
    static auto* const instance = new std::set<QProcess*>;
    return *instance;
}

} // namespace

void launch(const QString& program, const QStringList& arguments, const QString& failure,
            QObject* receiver, const Answer& answer) {
    // Of a detached process the end is not told.
    auto* process = new QProcess;
    running().insert(process);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->setChildProcessModifier([] { ::setsid(); });
    QObject::connect(
        process, &QProcess::finished, receiver,
        [failure, answer](int code, QProcess::ExitStatus status) {
            if (code == 0 && status == QProcess::NormalExit)
                answer({});
            else
                answer(
                    {code == exitOfMissingProgram ? Outcome::NoProgram : Outcome::Failed, failure});
        });
    QObject::connect(process, &QProcess::errorOccurred, receiver,
                     [failure, answer](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart)
                             answer({Outcome::NoProgram, failure});
                     });
    QObject::connect(process, &QProcess::stateChanged, process,
                     [process](QProcess::ProcessState state) {
                         if (state == QProcess::NotRunning && running().erase(process) > 0)
                             process->deleteLater();
                     });
    process->start(program, arguments);
}
