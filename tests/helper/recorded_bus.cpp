// SPDX-License-Identifier: MIT
#include "helper/recorded_bus.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>

#include <cstdlib>
#include <utility>

namespace chimewell::test {

RecordedBus::RecordedBus() : PrivateSession({"dbus-daemon"})
{
    const std::string records = folder.path() / "records";
    mkfifo(records.c_str(), 0600);
    records_ = FileDescriptor(open(records.c_str(), O_RDWR | O_CLOEXEC));
}

Environment RecordedBus::environment() const
{
    return {std::string("DBUS_SESSION_BUS_ADDRESS=") + std::getenv("DBUS_SESSION_BUS_ADDRESS"),
            "HOME=" + folder.path().string()};
}

std::string RecordedBus::recorder() const
{
    return std::string(CHIMEWELL_OPEN_RECORDER) + " " + (folder.path() / "records").string();
}

std::unique_ptr<ChildProcess> RecordedBus::startRecorder()
{
    auto recorder = std::make_unique<ChildProcess>(
        std::vector<std::string>{CHIMEWELL_OPEN_RECORDER, folder.path() / "records"});
    return nextRecord() == "ready" ? std::move(recorder) : nullptr;
}

bool RecordedBus::hasRecord() const
{
    pollfd entry{.fd = records_.get(), .events = POLLIN, .revents = 0};
    return !pending_.empty() || poll(&entry, 1, 0) == 1;
}

Finished runHook(std::vector<std::string> arguments, const Environment& environment, const Input& input)
{
    arguments.insert(arguments.begin(), CHIMEWELL_HOOK);
    return run(std::move(arguments), input, environment);
}

}
