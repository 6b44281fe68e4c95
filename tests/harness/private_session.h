// SPDX-License-Identifier: MIT
#pragma once

#include "harness/child_process.h"
#include "support/environment_variable.h"

#include <QDBusConnection>
#include <QStringList>

#include <list>
#include <string>
#include <vector>

namespace chimewell::test {

/// Real services of a desktop for one test, started by desktop.py in a folder of their own: "dbus-daemon"
/// (which knows no services but those that are offered), "Xvfb", "openbox", "pulseaudio", "xfce4-notifyd" and
/// "speech-dispatcher", which whoever wants to speak starts. While this object exists, the environment of the
/// test's process leads to them.
class PrivateSession {
public:
    explicit PrivateSession(const std::vector<std::string>& programs);
    ~PrivateSession();

    /// What is missing; empty when everything runs. The test then skips with this reason.
    const std::string& unavailable() const { return unavailable_; }

    /// Starts a program once more, at the same address; false if it does not come up.
    bool start(const std::string& program) { return command("start " + program); }
    /// Kills it, without a word to its clients.
    void kill(const std::string& program) { command("kill " + program); }
    void raise(const std::string& program, int signal);

    /// A new connection to the bus, with a name that is unique within the process. It is closed with the
    /// session.
    QDBusConnection connection(const QString& name);
    /// From now on the first call to `busName` starts `program`, with this session's environment.
    void offer(const std::string& busName, const std::string& program);
    /// The same with the machine's own service of that name; false where it is not installed.
    bool offerInstalled(const std::string& busName) { return command("offer " + busName); }

private:
    /// Empty after thirty seconds and when the harness has ended.
    std::string readLine();
    bool command(const std::string& line);

    ChildProcess harness_;
    std::string unavailable_;
    std::list<EnvironmentVariable> variables_;
    QStringList connections_;
};

}
