// SPDX-License-Identifier: MIT
#include "support/child_process.h"

#include <csignal>
#include <sys/prctl.h>

namespace chimewell::test {

ChildProcess::ChildProcess(const QString& program, const QStringList& arguments,
                           const QProcessEnvironment& environment)
{
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.setStandardInputFile(QProcess::nullDevice());
    process_.setProcessEnvironment(environment);
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process_.start(program, arguments);
    process_.waitForStarted();
}

ChildProcess::~ChildProcess()
{
    stop();
}

QByteArray ChildProcess::readLine()
{
    while (!process_.canReadLine())
        if (!process_.waitForReadyRead(10000)) return {};
    return process_.readLine().trimmed();
}

void ChildProcess::raise(int signal) const
{
    if (isRunning()) ::kill(static_cast<pid_t>(pid()), signal);
}

void ChildProcess::stop()
{
    if (!isRunning()) return;
    process_.terminate();
    raise(SIGCONT); // a stopped process takes the request only when it goes on
    if (process_.waitForFinished(3000)) return;
    process_.kill();
    process_.waitForFinished();
}

}
