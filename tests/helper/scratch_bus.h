// SPDX-License-Identifier: MIT
#pragma once

#include "helper/process.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace chimewell::test {

/// A session bus of the test's own in a folder of its own, and the recorder that stands for the application.
class ScratchBus {
public:
    enum class Application { absent, activatable, neverReady };

    /// Whether, and how, the bus can start the application.
    explicit ScratchBus(Application application = Application::absent);
    ~ScratchBus();
    ScratchBus(const ScratchBus&) = delete;
    ScratchBus& operator=(const ScratchBus&) = delete;

    bool isRunning() const { return isRunning_; }
    const std::filesystem::path& folder() const { return folder_; }
    /// What a hook needs to find this bus, and a home folder inside `folder()`.
    std::vector<std::string> environment() const;
    /// Stops the bus itself, which then accepts connections and answers nothing.
    void raise(int signal) const { daemon_->raise(signal); }

    /// Starts the recorder and waits until it has the application's name.
    std::unique_ptr<Process> startRecorder();
    /// What the recorder tells next: a URL that was opened, or "ready"; empty after ten seconds.
    std::string nextRecord() { return readLine(records_, pending_); }
    /// Whether the recorder has told something that was not read yet.
    bool hasRecord() const;

private:
    std::string address() const { return "unix:path=" + (folder_ / "bus").string(); }
    std::vector<std::string> recorderCommand() const;

    std::filesystem::path folder_;
    Descriptor records_;
    std::string pending_;
    std::unique_ptr<Process> daemon_;
    bool isRunning_ = false;
};

}
