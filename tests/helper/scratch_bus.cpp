// SPDX-License-Identifier: MIT
#include "helper/scratch_bus.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace chimewell::test {
namespace {

std::vector<std::string> searchPath()
{
    const char* const path = std::getenv("PATH");
    return {std::string("PATH=") + (path != nullptr ? path : "/usr/bin:/bin")};
}

}

ScratchBus::ScratchBus(Application application)
{
    std::string name =
        "/tmp/chimewell-hook.XXXXXX"; // short: the path of a socket has only about a hundred bytes
    if (mkdtemp(name.data()) == nullptr) return;
    folder_ = name;
    std::filesystem::create_directories(folder_ / "services");
    mkfifo((folder_ / "records").c_str(), 0600);
    records_.reset(open((folder_ / "records").c_str(), O_RDWR | O_CLOEXEC));

    std::ofstream(folder_ / "bus.conf") << "<busconfig><type>session</type><keep_umask/><listen>" << address()
                                        << "</listen><auth>EXTERNAL</auth><servicedir>" << name
                                        << "/services</servicedir><policy context=\"default\">"
                                           "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/>"
                                           "<allow own=\"*\"/></policy></busconfig>\n";
    if (application != Application::absent) {
        std::ofstream service(folder_ / "services/app.chimewell.Chimewell.service");
        service << "[D-BUS Service]\nName=app.chimewell.Chimewell\nExec=";
        if (application == Application::neverReady) service << "/bin/sleep 5";
        if (application == Application::activatable)
            for (const std::string& word : recorderCommand())
                service << " \"" << word << '"';
        service << '\n';
    }

    Descriptor fromDaemon;
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    fromDaemon.reset(ends[0]);
    const Descriptor toTest(ends[1]);
    daemon_ = std::make_unique<Process>(
        std::vector<std::string>{"dbus-daemon", "--config-file=" + name + "/bus.conf", "--nofork",
                                 "--nopidfile", "--print-address=1"},
        searchPath(), Process::Streams{.output = toTest.get(), .errors = STDERR_FILENO});
    std::string pending;
    isRunning_ = !readLine(fromDaemon, pending).empty(); // printed when the socket listens
}

ScratchBus::~ScratchBus()
{
    daemon_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::vector<std::string> ScratchBus::environment() const
{
    return {"DBUS_SESSION_BUS_ADDRESS=" + address(), "HOME=" + folder_.string()};
}

std::unique_ptr<Process> ScratchBus::startRecorder()
{
    auto recorder = std::make_unique<Process>(
        recorderCommand(), searchPath(), Process::Streams{.output = STDERR_FILENO, .errors = STDERR_FILENO});
    return nextRecord() == "ready" ? std::move(recorder) : nullptr;
}

bool ScratchBus::hasRecord() const
{
    pollfd entry{.fd = records_.get(), .events = POLLIN, .revents = 0};
    return !pending_.empty() || poll(&entry, 1, 0) == 1;
}

std::vector<std::string> ScratchBus::recorderCommand() const
{
    return {CHIMEWELL_OPEN_RECORDER, address(), (folder_ / "records").string()};
}

}
