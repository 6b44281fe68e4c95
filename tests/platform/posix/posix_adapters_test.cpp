// SPDX-License-Identifier: MIT
#include "platform/posix/random_device.h"
#include "platform/posix/running_lock.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>
#include <regex>
#include <set>

namespace chimewell::test {
namespace {

using Paths = std::vector<std::filesystem::path>;

TEST(RandomDevice, SpreadsOverTheWholeRange)
{
    const std::regex version4("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    RandomDevice random;
    EXPECT_TRUE(std::regex_match(random.uuid(), version4));
    EXPECT_NE(random.uuid(), random.uuid());
    std::set<double> units;
    while (units.size() < 1000)
        units.insert(random.unit());
    EXPECT_TRUE(*units.begin() >= 0 && *units.begin() < 0.05) << *units.begin();
    EXPECT_TRUE(*units.rbegin() > 0.95 && *units.rbegin() <= 1) << *units.rbegin();
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
