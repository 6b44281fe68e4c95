// SPDX-License-Identifier: MIT
#include "harness/private_session.h"

#include <utility>

namespace chimewell::test {
namespace {

std::vector<std::string> harnessCommand(const std::vector<std::string>& programs)
{
    std::vector<std::string> command = {"/usr/bin/python3", "-B", CHIMEWELL_VIRTUAL_DESKTOP};
    command.insert(command.end(), programs.begin(), programs.end());
    return command;
}

}

PrivateSession::PrivateSession(const std::vector<std::string>& programs)
    : harness_(harnessCommand(programs), QProcess::ForwardedErrorChannel)
{
    for (;;) {
        const std::string line = readLine();
        if (line == "ready") return;
        const auto equals = line.find('=');
        if (equals == std::string::npos) {
            unavailable_ = line.empty() ? "the services did not start" : line;
            return;
        }
        variables_.emplace_back(line.substr(0, equals), line.substr(equals + 1));
    }
}

PrivateSession::~PrivateSession()
{
    for (const QString& name : std::as_const(connections_))
        QDBusConnection::disconnectFromBus(name);
}

QDBusConnection PrivateSession::connection(const QString& name)
{
    connections_.append(name);
    return QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), name);
}

void PrivateSession::raise(const std::string& program, int signal)
{
    command("raise " + program + " " + std::to_string(signal));
}

void PrivateSession::offer(const std::string& busName, const std::string& program)
{
    command("offer " + busName + " " + program);
}

std::string PrivateSession::readLine()
{
    while (!harness_.canReadLine() && harness_.waitForReadyRead()) {
    }
    return harness_.readLine().trimmed().toStdString();
}

bool PrivateSession::command(const std::string& line)
{
    harness_.write((line + "\n").c_str());
    return readLine() == "done";
}

}
