// SPDX-License-Identifier: MIT
#include "helper/deliver.h"

#include "values/shared_names.h"

#include <CoreServices/CoreServices.h>
#include <fcntl.h>
#include <limits.h>
#include <mach-o/dyld.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>

namespace chimewell {

namespace {

struct Release {
    void operator()(CFTypeRef object) const { CFRelease(object); }
};
template<typename Reference>
using Owned = std::unique_ptr<std::remove_pointer_t<Reference>, Release>;

/// While the application runs it holds a lock on this file.
bool isRunning(const std::string& folder)
{
    const int file = open((folder + '/' + runningLockName).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return false;
    struct flock lock = {};
    lock.l_type = F_RDLCK;
    lock.l_whence = SEEK_SET;
    const bool isHeld = fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    close(file);
    return isHeld;
}

/// The application leaves this file when the user quits it, and removes it when the user starts it again. It
/// can exist while the application runs, which then was started in some other way.
bool isDormant(const std::string& folder)
{
    return access((folder + '/' + dormantMarkerName).c_str(), F_OK) == 0;
}

/// The application that this program is part of; empty if it is not in a bundle.
std::string enclosingApplication()
{
    std::array<char, PATH_MAX> path = {};
    std::array<char, PATH_MAX> resolved = {};
    auto size = static_cast<std::uint32_t>(path.size());
    if (_NSGetExecutablePath(path.data(), &size) != 0 || !realpath(path.data(), resolved.data())) return {};
    constexpr std::string_view bundle = ".app";
    const std::string inside = std::string("/Contents/Resources/") + helperName;
    std::string_view place(resolved.data());
    if (!place.ends_with(inside)) return {};
    place.remove_suffix(inside.size());
    return place.ends_with(bundle) ? std::string(place) : std::string();
}

const UInt8* bytesOf(std::string_view text)
{
    return reinterpret_cast<const UInt8*>(text.data());
}

CFURLRef folderUrl(const std::string& path)
{
    return CFURLCreateFromFileSystemRepresentation(nullptr, bytesOf(path), static_cast<CFIndex>(path.size()),
                                                   true);
}

void openInApplication(std::string_view url)
{
    const Owned<CFURLRef> event(CFURLCreateWithBytes(nullptr, bytesOf(url), static_cast<CFIndex>(url.size()),
                                                     kCFStringEncodingUTF8, nullptr));
    if (!event) return;
    const void* item = event.get();
    const Owned<CFArrayRef> items(CFArrayCreate(nullptr, &item, 1, &kCFTypeArrayCallBacks));
    if (!items) return;
    // By name, so that another copy of the application does not take it.
    const std::string path = enclosingApplication();
    const Owned<CFURLRef> application(path.empty() ? nullptr : folderUrl(path));

    LSLaunchURLSpec launch = {};
    launch.appURL = application.get();
    launch.itemURLs = items.get();
    // The user goes on typing where they type, and the agent does not wait for an application that starts.
    launch.launchFlags = kLSLaunchDontSwitch | kLSLaunchDontAddToRecents | kLSLaunchAsync;
    LSOpenFromURLSpec(&launch, nullptr);
}

}

// The system starts the application with an environment and streams of its own. There is no time limit to
// give to it, and no process to leave the rest to, as CoreFoundation does not work in the child of a fork;
// the limit of the whole program ends a call that takes too long.
void deliver(std::string_view url, bool mayStart, const Environment& environment, Deadline /*deadline*/)
{
    const std::string folder =
        std::string(environment["HOME"]) + '/' + macApplicationSupport + '/' + applicationFolderName;
    if (isRunning(folder) || (mayStart && !isDormant(folder))) openInApplication(url);
}

}
