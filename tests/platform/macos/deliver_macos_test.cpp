// SPDX-License-Identifier: MIT
#include "helper/deliver.h"
#include "platform/posix/file_descriptor.h"
#include "support/temporary_folder.h"
#include "values/shared_names.h"

#include <CoreServices/CoreServices.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <mach-o/dyld.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Replaces CoreFoundation, Launch Services and the dynamic linker. The sanitizer finds what is not released.

namespace {

struct Launch {
    std::string item;
    std::optional<std::string> application; ///< Absent when the system is to choose.
    unsigned int flags = 0;
    bool operator==(const Launch&) const = default;
};
std::vector<Launch> launches;
std::string executable; ///< Where the helper is; unknown when empty.

std::string text(const UInt8* bytes, CFIndex length)
{
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length)};
}

}

/// A URL, or an array of one.
struct __CFURL {
    std::string text;
};

struct CFArrayCallBacks {};
const CFArrayCallBacks kCFTypeArrayCallBacks = {};

void CFRelease(CFTypeRef object)
{
    delete static_cast<const __CFURL*>(object);
}

CFURLRef CFURLCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex length, CFStringEncoding encoding,
                              CFURLRef)
{
    if (length == 0 || encoding != kCFStringEncodingUTF8) return nullptr;
    return new __CFURL{text(bytes, length)};
}

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* path, CFIndex length,
                                                 Boolean isFolder)
{
    return new __CFURL{text(path, length) + (isFolder ? "/" : "")};
}

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks)
{
    // Without these callbacks it would not hold its items.
    if (count != 1 || callBacks != &kCFTypeArrayCallBacks) return nullptr;
    return reinterpret_cast<CFArrayRef>(new __CFURL(*static_cast<CFURLRef>(values[0])));
}

OSStatus LSOpenFromURLSpec(const LSLaunchURLSpec* launch, CFURLRef*)
{
    launches.push_back({.item = reinterpret_cast<CFURLRef>(launch->itemURLs)->text,
                        .application = launch->appURL ? std::optional(launch->appURL->text) : std::nullopt,
                        .flags = launch->launchFlags});
    return -10810; // an error of no meaning to the helper
}

int _NSGetExecutablePath(char* path, std::uint32_t* size)
{
    if (executable.empty() || executable.size() >= *size) return -1;
    std::memcpy(path, executable.c_str(), executable.size() + 1);
    return 0;
}

namespace chimewell::test {
namespace {

namespace fs = std::filesystem;

constexpr char url[] = "chimewell://event?type=finished&provider=claude&cwd=%2FUsers%2Fme%2Fa%20b&v=1";

/// Holds the lock as the running application does.
FileDescriptor lockAsTheApplication(const fs::path& folder)
{
    FileDescriptor file(::open((folder / runningLockName).c_str(), O_RDWR | O_CREAT, 0600));
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    EXPECT_EQ(::fcntl(file.get(), F_OFD_SETLK, &lock), 0); // one of its own, although in this process
    return file;
}

class DeliverMacosTest : public ::testing::Test {
protected:
    DeliverMacosTest()
    {
        executable.clear();
        fs::create_directories(application);
    }

    std::vector<Launch> deliver(bool mayStart, std::string_view event = url) const
    {
        const std::string variable = "HOME=" + home.path().string();
        const std::array<const char*, 2> block = {variable.c_str(), nullptr};
        launches.clear();
        chimewell::deliver(event, mayStart, Environment(block.data()), Deadline::max());
        return launches;
    }

    TemporaryFolder home;
    fs::path application = home.path() / "Library/Application Support/Chimewell";
};

TEST_F(DeliverMacosTest, HandsTheUrlOverByteForByteAndBringsNothingForward)
{
    constexpr unsigned int asynchronousUnswitchedUnrecorded = 0x10000 | 0x200 | 0x100;
    EXPECT_EQ(deliver(true), std::vector{(Launch{url, std::nullopt, asynchronousUnswitchedUnrecorded})});
    EXPECT_TRUE(deliver(true, "").empty());
}

TEST_F(DeliverMacosTest, StartsTheApplicationOnlyWhenItMay)
{
    for (const bool isDormant : {false, true}) {
        if (isDormant) home.write(application / "dormant", "");
        EXPECT_EQ(deliver(true).size(), isDormant ? 0U : 1U);
        EXPECT_EQ(deliver(false).size(), 0U);
        const FileDescriptor lock = lockAsTheApplication(application);
        EXPECT_EQ(deliver(true).size(), 1U);
        EXPECT_EQ(deliver(false).size(), 1U);
    }
}

TEST_F(DeliverMacosTest, NamesTheApplicationThatItIsPartOf)
{
    const fs::path at = fs::canonical(home.path());
    const auto helper = [&](const fs::path& contents) {
        return home.write(at / contents / "chimewell-hook", "");
    };
    const fs::path inBundle = helper("My Apps/Chimewell.app/Contents/Resources");
    fs::create_symlink(inBundle, at / "link");
    const std::string bundle = at / "My Apps/Chimewell.app/";

    const std::vector<std::pair<fs::path, std::optional<std::string>>> cases = {
        {inBundle, bundle},
        {at / "My Apps/../link", bundle},
        {helper("Chimewell/Contents/Resources"), std::nullopt},
        {helper("Chimewell.app/Contents/Libraries"), std::nullopt},
        {at / "gone/Chimewell.app/Contents/Resources/chimewell-hook", std::nullopt}};
    for (const auto& [path, expected] : cases) {
        executable = path;
        EXPECT_EQ(deliver(true).at(0).application, expected) << path;
    }
}

}
}
