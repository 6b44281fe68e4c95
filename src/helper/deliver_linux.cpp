// SPDX-License-Identifier: MIT
#include "helper/deliver.h"
#include "helper/session_bus.h"
#include "values/shared_names.h"

#include <fcntl.h>
#include <unistd.h>

#include <string>

namespace chimewell {

namespace {

/// As long as the bus itself gives a program to start.
constexpr std::chrono::seconds detachedLimit{25};

/// The application leaves this file when the user quits it.
bool isDormant(const Environment& environment)
{
    std::string folder(environment["XDG_DATA_HOME"]);
    if (!folder.starts_with('/')) folder = homeFolder(environment, getuid()) + "/.local/share";
    return access((folder + '/' + applicationFolderName + '/' + dormantMarkerName).c_str(), F_OK) == 0;
}

/// Goes on in a new process with nothing open but `descriptor`, if that is one. False in the process that
/// called, and if there can be no other.
bool detach(int descriptor, const Environment& environment)
{
    if (fork() != 0) return false;
    setsid();
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (nothing < 0) _exit(0); // rather than hold the agent's streams
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, stream);
    constexpr int firstOther = STDERR_FILENO + 1;
    if (descriptor > firstOther) close_range(firstOther, static_cast<unsigned int>(descriptor) - 1, 0);
    close_range(static_cast<unsigned int>(descriptor >= firstOther ? descriptor + 1 : firstOther), ~0U, 0);
    const bool hasMoved = chdir(homeFolder(environment, getuid()).c_str()) == 0 || chdir("/") == 0;
    static_cast<void>(hasMoved); // only to keep no folder of the agent's busy
    return true;
}

}

void deliver(std::string_view url, bool mayStart, const Environment& environment, Deadline deadline)
{
    const auto sockets = sessionBusSockets(environment, getuid());
    OpenCall call(sockets, url, OpenCall::IfAbsent::giveUp);
    OpenCall::Outcome outcome = call.proceed(deadline);
    bool isDetached = false;
    if (outcome == OpenCall::Outcome::pending) {
        if (!detach(call.descriptor(), environment)) return;
        isDetached = true;
        outcome = call.proceed(std::chrono::steady_clock::now() + detachedLimit);
    }
    if (outcome == OpenCall::Outcome::nobody && mayStart && !isDormant(environment)) {
        if (!isDetached && !detach(-1, environment)) return;
        isDetached = true;
        OpenCall start(sockets, url, OpenCall::IfAbsent::start);
        start.proceed(std::chrono::steady_clock::now() + detachedLimit);
    }
    if (isDetached) _exit(0);
}

}
