// SPDX-License-Identifier: MIT
#include "harness/child_process.h"

#include <QString>
#include <QStringList>

#include <csignal>

namespace chimewell::test {

ChildProcess::ChildProcess(const std::vector<std::string>& command, ProcessChannelMode channels)
{
    QStringList arguments;
    for (const std::string& each : command)
        arguments.append(QString::fromStdString(each));
    const QString program = arguments.takeFirst();
    setProcessChannelMode(channels);
    start(program, arguments);
    waitForStarted();
}

ChildProcess::~ChildProcess()
{
    terminate();
    raise(SIGCONT); // a stopped process takes the request only when it goes on
    if (waitForFinished(10000)) return;
    kill();
    waitForFinished();
}

void ChildProcess::raise(int signal) const
{
    if (processId() > 0) ::kill(static_cast<pid_t>(processId()), signal);
}

Finished run(const std::vector<std::string>& command)
{
    ChildProcess program(command, QProcess::MergedChannels);
    program.closeWriteChannel();
    const bool hasEnded = program.waitForFinished() && program.exitStatus() == QProcess::NormalExit;
    return {.status = hasEnded ? program.exitCode() : -1, .output = program.readAll().toStdString()};
}

}
