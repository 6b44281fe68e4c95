// SPDX-License-Identifier: MIT
#include "fake_launch_services.h"

#include <CoreServices/CoreServices.h>
#include <mach-o/dyld.h>

#include <cstring>
#include <utility>

using chimewell::test::launchServices;

namespace {

struct Object {
    Object() { ++launchServices.objects; }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() { --launchServices.objects; }
    mutable int references = 1;
};

void retain(CFTypeRef object)
{
    ++static_cast<const Object*>(object)->references;
}

/// Paths are told from other addresses by this.
constexpr char fileScheme[] = "file://";

}

struct CFArrayCallBacks {
    CFTypeRef unused;
};
const CFArrayCallBacks kCFTypeArrayCallBacks = {};

struct __CFURL : Object {
    explicit __CFURL(std::string name) : text(std::move(name)) {}
    std::string text;
};

struct __CFArray : Object {
    explicit __CFArray(CFTypeRef only) : item(only) { retain(item); }
    ~__CFArray() override { CFRelease(item); }
    CFTypeRef item;
};

namespace chimewell::test {

FakeLaunchServices launchServices;

}

void CFRelease(CFTypeRef object)
{
    const auto* known = static_cast<const Object*>(object);
    if (--known->references == 0) delete known;
}

CFURLRef CFURLCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex length, CFStringEncoding encoding,
                              CFURLRef)
{
    if (launchServices.refusesUrls || encoding != kCFStringEncodingUTF8) return nullptr;
    return new __CFURL(std::string(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length)));
}

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* path, CFIndex length,
                                                 Boolean isFolder)
{
    const std::string name(reinterpret_cast<const char*>(path), static_cast<std::size_t>(length));
    return new __CFURL(fileScheme + name + (isFolder ? "/" : ""));
}

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks)
{
    // One that does not hold its items is not what the system may keep.
    return count == 1 && callBacks == &kCFTypeArrayCallBacks ? new __CFArray(values[0]) : nullptr;
}

OSStatus LSOpenFromURLSpec(const LSLaunchURLSpec* launch, CFURLRef*)
{
    chimewell::test::FakeLaunchServices::Launch seen;
    seen.items.push_back(static_cast<const __CFURL*>(launch->itemURLs->item)->text);
    if (launch->appURL) seen.application = launch->appURL->text;
    seen.flags = launch->launchFlags;
    launchServices.launches.push_back(seen);
    return -10810; // an error of no meaning to the helper
}

int _NSGetExecutablePath(char* path, std::uint32_t* size)
{
    const std::string& executable = launchServices.executable;
    if (executable.empty() || executable.size() >= *size) return -1;
    std::memcpy(path, executable.c_str(), executable.size() + 1);
    return 0;
}
