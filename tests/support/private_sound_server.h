// SPDX-License-Identifier: MIT
#pragma once

#include "support/child_process.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <csignal>
#include <memory>
#include <string>

namespace chimewell::test {

/// A PulseAudio server whose only device is silent. While it exists, the test's own PULSE_SERVER leads to it.
class PrivateSoundServer {
public:
    PrivateSoundServer();

    /// What is missing; empty when the server can be used. The test then skips with this reason.
    const std::string& unavailable() const { return unavailable_; }
    /// Ends without a word to its clients.
    void kill();
    /// Starts again after `kill`, at the same address.
    void start();
    /// Takes connections but does nothing, until `resume`.
    void suspend() const { server_->raise(SIGSTOP); }
    void resume() const { server_->raise(SIGCONT); }
    /// How many sounds it is playing, or keeps without playing them.
    int streams() const;

private:
    QString socket() const;
    QByteArray control(const QStringList& arguments) const;

    TemporaryFolder folder_;
    EnvironmentVariable address_;
    std::string unavailable_;
    std::unique_ptr<ChildProcess> server_;
};

}
