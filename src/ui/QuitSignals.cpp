#include "QuitSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdlib>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

int wakeUp = -1;

// All that a signal handler may do is to wake the event loop.
void onSignal(int /*signal*/) {
    const eventfd_t count = 1;
    [[maybe_unused]] const auto written = ::write(wakeUp, &count, sizeof count);
}

} // namespace

void quitOnSignals() {
    wakeUp = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto* notifier =
        new QSocketNotifier(wakeUp, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, QCoreApplication::instance(), [] {
        // Or the signal would end the next loop too, which shows the fatal page.
        eventfd_t count = 0;
        ::eventfd_read(wakeUp, &count);
        // Not quit(), which a loop that runs before or after the application's own does not hear.
        QCoreApplication::exit(EXIT_SUCCESS);
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        std::signal(signal, onSignal);
}
