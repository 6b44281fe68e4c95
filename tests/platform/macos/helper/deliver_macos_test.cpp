// SPDX-License-Identifier: MIT
#include "fake_launch_services.h"
#include "helper/deliver.h"
#include "platform/posix/running_lock.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

namespace fs = std::filesystem;

constexpr char url[] = "chimewell://event?type=finished&provider=claude&cwd=%2FUsers%2Fme%2Fa%20b&v=1";

/// Another process that holds the lock, as the running application does.
class RunningApplication {
public:
    explicit RunningApplication(const fs::path& folder)
    {
        std::array<int, 2> pipe = {};
        if (::pipe(pipe.data()) != 0) return;
        process_ = ::fork();
        if (process_ == 0) {
            const auto lock = RunningLock::take(folder);
            if (lock && ::write(pipe[1], "y", 1) == 1) ::pause();
            ::_exit(1);
        }
        ::close(pipe[1]);
        char said = 0;
        isReady_ = ::read(pipe[0], &said, 1) == 1;
        ::close(pipe[0]);
    }
    ~RunningApplication()
    {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    RunningApplication(const RunningApplication&) = delete;
    RunningApplication& operator=(const RunningApplication&) = delete;

    bool isReady() const { return isReady_; }

private:
    pid_t process_ = -1;
    bool isReady_ = false;
};

class DeliverMacosTest : public ::testing::Test {
protected:
    DeliverMacosTest()
    {
        launchServices = {};
        fs::create_directories(application());
    }
    ~DeliverMacosTest() override { EXPECT_EQ(launchServices.objects, 0U); }

    fs::path application() const { return home.path() / "Library/Application Support/Chimewell"; }

    void deliver(bool mayStart) const
    {
        const std::string variable = "HOME=" + home.path().string();
        const std::array<const char*, 2> block = {variable.c_str(), nullptr};
        chimewell::deliver(url, mayStart, Environment(block.data()), Deadline::max());
    }

    TemporaryFolder home;
};

TEST_F(DeliverMacosTest, HandsTheUrlOverByteForByteAndBringsNothingForward)
{
    deliver(true);
    // The flags of Launch Services, as numbers: it is not waited for, not switched to and not noted as
    // recent.
    const FakeLaunchServices::Launch expected{
        .items = {url}, .application = {}, .flags = 0x10000 | 0x200 | 0x100};
    EXPECT_EQ(launchServices.launches, std::vector{expected});
}

TEST_F(DeliverMacosTest, StartsTheApplicationOnlyWhereItMay)
{
    struct Case {
        bool isRunning;
        bool isDormant;
        bool mayStart;
        bool isDelivered;
    };
    for (const Case& each :
         {Case{false, false, true, true}, Case{false, false, false, false}, Case{false, true, true, false},
          Case{false, true, false, false}, Case{true, false, true, true}, Case{true, false, false, true},
          Case{true, true, true, true}, Case{true, true, false, true}}) {
        SCOPED_TRACE(testing::Message() << "running " << each.isRunning << ", dormant " << each.isDormant
                                        << ", may start " << each.mayStart);
        launchServices = {};
        fs::remove(application() / "dormant");
        if (each.isDormant) home.write("Library/Application Support/Chimewell/dormant", "");
        std::optional<RunningApplication> running;
        if (each.isRunning) {
            running.emplace(application());
            ASSERT_TRUE(running->isReady());
        }
        deliver(each.mayStart);
        EXPECT_EQ(launchServices.launches.size(), each.isDelivered ? 1U : 0U);
    }
}

TEST_F(DeliverMacosTest, NamesTheApplicationThatItIsPartOf)
{
    const fs::path at = fs::canonical(home.path());
    home.write("My Apps/Chimewell.app/Contents/Resources/chimewell-hook", "");
    home.write("Chimewell/Contents/Resources/chimewell-hook", "");
    home.write("Chimewell.app/Contents/MacOS/chimewell-hook", "");
    fs::create_symlink(at / "My Apps/Chimewell.app/Contents/Resources/chimewell-hook", at / "link");
    const std::string bundle = "file://" + (at / "My Apps/Chimewell.app/").string();

    const std::vector<std::pair<fs::path, std::optional<std::string>>> cases = {
        {at / "My Apps/Chimewell.app/Contents/Resources/chimewell-hook", bundle},
        {at / "My Apps/../link", bundle},
        {at / "Chimewell/Contents/Resources/chimewell-hook", std::nullopt},
        {at / "Chimewell.app/Contents/MacOS/chimewell-hook", std::nullopt},
        {at / "gone/Chimewell.app/Contents/Resources/chimewell-hook", std::nullopt},
        {std::string(5000, 'a'), std::nullopt},
        {"", std::nullopt}};
    for (const auto& [executable, expected] : cases) {
        launchServices = {};
        launchServices.executable = executable;
        deliver(true);
        ASSERT_EQ(launchServices.launches.size(), 1U) << executable;
        EXPECT_EQ(launchServices.launches[0].application, expected) << executable;
    }
}

TEST_F(DeliverMacosTest, GivesUpWithoutAUrl)
{
    launchServices.refusesUrls = true;
    deliver(true);
    EXPECT_TRUE(launchServices.launches.empty());
}

}
}
