// SPDX-License-Identifier: MIT
#pragma once

#include "support/child_process.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <csignal>
#include <filesystem>
#include <memory>
#include <string>

namespace chimewell::test {

/// A speech service (Speech Dispatcher with eSpeak NG) whose voice goes to the test's sound server. While
/// this object exists, XDG_RUNTIME_DIR and HOME of the test are folders of its own, so that the service can
/// also be started on demand; it is ended all the same.
class PrivateSpeechService {
public:
    /// Does not start it yet.
    PrivateSpeechService();
    ~PrivateSpeechService();

    /// What is missing; empty when the service can be used. The test then skips with this reason.
    const std::string& unavailable() const { return unavailable_; }
    const std::filesystem::path& socket() const { return socket_; }
    void start();
    void kill();
    /// Takes connections but does nothing, until `resume`.
    void suspend() const { service_->raise(SIGSTOP); }
    void resume() const { service_->raise(SIGCONT); }
    bool isRunning() const;

private:
    TemporaryFolder folder_;
    EnvironmentVariable runtimeFolder_;
    EnvironmentVariable home_;
    std::filesystem::path socket_;
    std::string unavailable_;
    std::unique_ptr<ChildProcess> service_;
};

}
