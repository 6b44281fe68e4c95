// SPDX-License-Identifier: MIT
#include "platform/linux/session/termination_signals.h"

#include <QObject>

#include <array>
#include <csignal>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace chimewell {
namespace {

constexpr std::array terminationSignals = {SIGTERM, SIGHUP, SIGINT};

// An eventfd. Global, because a signal handler has no other way to reach it.
int signalled = -1;

void onSignal(int)
{
    static_cast<void>(eventfd_write(signalled, 1));
}

void setHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : terminationSignals)
        sigaction(signal, &action, nullptr);
}

int openSignalled()
{
    signalled = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    return signalled;
}

}

TerminationSignals::TerminationSignals(std::function<void()> terminate)
    : notifier_(openSignalled(), QSocketNotifier::Read)
{
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                     [terminate = std::move(terminate)](QSocketDescriptor descriptor) {
                         eventfd_t count = 0;
                         static_cast<void>(eventfd_read(descriptor, &count));
                         terminate();
                     });
    setHandler(onSignal);
}

TerminationSignals::~TerminationSignals()
{
    setHandler(SIG_DFL);
    close(std::exchange(signalled, -1));
}

}
