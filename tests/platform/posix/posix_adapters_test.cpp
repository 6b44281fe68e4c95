// SPDX-License-Identifier: MIT
#include "platform/posix/installed_resources.h"
#include "platform/posix/random_device.h"
#include "platform/posix/running_lock.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <optional>
#include <regex>

namespace chimewell::test {
namespace {

using Paths = std::vector<std::filesystem::path>;

TEST(InstalledResources, FindsAFileInTheFirstFolderThatHasIt)
{
    const TemporaryFolder folder;
    const auto helper = folder.write("libexec/chimewell-hook", "");
    folder.write("share/chimewell-hook", "");
    folder.write("share/chime/x", "");
    const InstalledResources resources(
        {folder.path() / "none", folder.path() / "bin/../libexec", folder.path() / "share"});
    EXPECT_EQ(resources.named("chimewell-hook"), helper); // in its shortest form
    EXPECT_EQ(resources.named("Ping"), std::nullopt);
    EXPECT_EQ(resources.named("chime"), std::nullopt); // a folder
}

TEST(RandomDevice, SpreadsOverTheWholeRange)
{
    const std::regex version4("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    RandomDevice random;
    EXPECT_TRUE(std::regex_match(random.uuid(), version4));
    EXPECT_NE(random.uuid(), random.uuid());
    double least = 1;
    double most = 0;
    for (int i = 0; i < 1000; ++i) {
        const double unit = random.unit();
        least = std::min(least, unit);
        most = std::max(most, unit);
    }
    EXPECT_TRUE(least >= 0 && least < 0.05 && most > 0.95 && most <= 1) << least << ' ' << most;
}

TEST(RunningLock, IsHeldByOneProcessUntilThatEndsHoweverItDoes)
{
    const TemporaryFolder folder;
    std::array<int, 2> pipe = {};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t other = ::fork();
    if (other == 0) {
        const auto lock = RunningLock::take(folder.path());
        if (lock && ::write(pipe[1], "y", 1) == 1) ::pause();
        ::_exit(1);
    }
    char said = 0;
    ::close(pipe[1]);
    ASSERT_EQ(::read(pipe[0], &said, 1), 1);
    EXPECT_FALSE(RunningLock::take(folder.path()));
    ::kill(other, SIGKILL);
    ::waitpid(other, nullptr, 0);
    EXPECT_TRUE(RunningLock::take(folder.path()));
    ::close(pipe[0]);
}

TEST(XdgUserFolders, FollowTheEnvironmentAsFarAsItIsAbsolute)
{
    struct Case {
        std::optional<std::string> dataHome, dataDirs, configHome, configDirs;
        Paths data, config;
    };
    const Paths plainData = {"/h/.local/share", "/usr/local/share", "/usr/share"};
    const Paths plainConfig = {"/h/.config", "/etc/xdg"};
    for (const Case& c :
         {Case{{}, {}, {}, {}, plainData, plainConfig}, Case{"data", "a:b", "", ":", plainData, plainConfig},
          Case{"/d", "/a:b::/c:", "/k", "/x:../y", {"/d", "/a", "/c"}, {"/k", "/x"}}}) {
        const EnvironmentVariable variables[] = {{"HOME", "/h"},
                                                 {"XDG_DATA_HOME", c.dataHome},
                                                 {"XDG_DATA_DIRS", c.dataDirs},
                                                 {"XDG_CONFIG_HOME", c.configHome},
                                                 {"XDG_CONFIG_DIRS", c.configDirs}};
        EXPECT_EQ(XdgUserFolders().dataFolders(), c.data);
        EXPECT_EQ(XdgUserFolders().configFolders(), c.config);
    }
    const EnvironmentVariable relative("HOME", "relative");
    const std::filesystem::path found = XdgUserFolders().home(); // by the user database
    EXPECT_TRUE(found.is_absolute() && found != "/") << found;
}

}
}
