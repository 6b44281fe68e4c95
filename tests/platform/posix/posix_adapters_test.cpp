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
#include <set>

namespace chimewell::test {
namespace {

using Paths = std::vector<std::filesystem::path>;

TEST(InstalledResources, FindsAFileInTheFirstFolderThatHasIt)
{
    const TemporaryFolder folder;
    const auto helper = folder.write("libexec/chimewell-hook", "");
    folder.write("share/chimewell-hook", "");
    const auto sound = folder.write("share/Ping.wav", "");
    folder.write("share/chime/x", "");
    const InstalledResources resources(
        {folder.path() / "bin/../libexec", folder.path() / "none", folder.path() / "share"});
    EXPECT_EQ(resources.named("chimewell-hook"), helper); // in its shortest form
    EXPECT_EQ(resources.named("Ping.wav"), sound);
    EXPECT_EQ(resources.named("Ping"), std::nullopt);
    EXPECT_EQ(resources.named("chime"), std::nullopt); // a folder
}

TEST(RandomDevice, SpreadsOverTheWholeRange)
{
    const std::regex version4("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    RandomDevice random;
    std::set<std::string> uuids;
    int quarters[4] = {};
    for (int i = 0; i < 1000; ++i) {
        const auto [uuid, isNew] = uuids.insert(random.uuid());
        EXPECT_TRUE(isNew && std::regex_match(*uuid, version4)) << *uuid;
        const double unit = random.unit();
        ASSERT_TRUE(unit >= 0 && unit <= 1) << unit;
        ++quarters[std::min(3, static_cast<int>(unit * 4))];
    }
    for (const int count : quarters)
        EXPECT_GT(count, 150); // 250 expected; this low once in 10^13 runs
}

TEST(RunningLock, IsHeldByOneProcessUntilThatEndsHoweverItDoes)
{
    const TemporaryFolder folder;
    std::array<int, 2> pipe = {};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t other = ::fork();
    if (other == 0) {
        const auto lock = RunningLock::take(folder.path());
        const char said = lock ? 'y' : 'n';
        if (::write(pipe[1], &said, 1) == 1) ::pause();
        ::_exit(1);
    }
    char said = 0;
    ASSERT_EQ(::read(pipe[0], &said, 1), 1);
    EXPECT_EQ(said, 'y');
    EXPECT_FALSE(RunningLock::take(folder.path()));

    ::kill(other, SIGKILL);
    ::waitpid(other, nullptr, 0);
    EXPECT_TRUE(RunningLock::take(folder.path()));
    ::close(pipe[0]);
    ::close(pipe[1]);
    EXPECT_FALSE(RunningLock::take(folder.path() / "missing"));
}

TEST(XdgUserFolders, FollowTheEnvironmentAsFarAsItIsAbsolute)
{
    using Value = std::optional<std::string>;
    const auto expect = [](const Value& dataHome, const Value& dataDirs, const Value& configHome,
                           const Value& configDirs, const Paths& data, const Paths& config) {
        const EnvironmentVariable variables[] = {{"HOME", "/h"},
                                                 {"XDG_DATA_HOME", dataHome},
                                                 {"XDG_DATA_DIRS", dataDirs},
                                                 {"XDG_CONFIG_HOME", configHome},
                                                 {"XDG_CONFIG_DIRS", configDirs}};
        const XdgUserFolders folders;
        EXPECT_EQ(folders.dataFolders(), data);
        EXPECT_EQ(folders.configFolders(), config);
        EXPECT_EQ(folders.applicationSupport(), data.front());
    };
    const Paths plainData = {"/h/.local/share", "/usr/local/share", "/usr/share"};
    const Paths plainConfig = {"/h/.config", "/etc/xdg"};
    expect({}, {}, {}, {}, plainData, plainConfig);
    expect("data", "a:b", "", ":", plainData, plainConfig);
    expect("/d", "/a:b::/c:", "/k", "/x:../y", {"/d", "/a", "/c"}, {"/k", "/x"});
    for (const Value& home : {Value(), Value("relative")}) {
        const EnvironmentVariable none("HOME", home);
        const std::filesystem::path found = XdgUserFolders().home(); // by the user database
        EXPECT_TRUE(found.is_absolute() && found != "/") << found;
    }
}

}
}
