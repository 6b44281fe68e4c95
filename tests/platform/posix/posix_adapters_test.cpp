// SPDX-License-Identifier: MIT
#include "platform/posix/random_device.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"

#include <gtest/gtest.h>

#include <optional>
#include <regex>

namespace chimewell::test {
namespace {

using Paths = std::vector<std::filesystem::path>;

TEST(RandomDevice, MakesIdentifiersThatDiffer)
{
    const std::regex version4("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    RandomDevice random;
    EXPECT_TRUE(std::regex_match(random.uuid(), version4));
    EXPECT_NE(random.uuid(), random.uuid());
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
