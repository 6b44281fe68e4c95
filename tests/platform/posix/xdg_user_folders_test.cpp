// SPDX-License-Identifier: MIT
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using Paths = std::vector<std::filesystem::path>;

TEST(XdgUserFolders, FollowTheEnvironmentAsFarAsItIsAbsolute)
{
    struct Case {
        std::optional<std::string> dataHome, dataDirs, configHome, configDirs;
        Paths data, config;
    };
    const Paths plainData = {"/h/.local/share", "/usr/local/share", "/usr/share"};
    const Paths plainConfig = {"/h/.config", "/etc/xdg"};
    const EnvironmentVariable home("HOME", "/h");
    for (const Case& each : {
             Case{{}, {}, {}, {}, plainData, plainConfig},
             Case{"", "", "", "", plainData, plainConfig},
             Case{"data", "a:b", "./c", ":", plainData, plainConfig},
             Case{"/d", "/a:b::/c:", "/k", "/x:../y", {"/d", "/a", "/c"}, {"/k", "/x"}},
         }) {
        const EnvironmentVariable variables[] = {{"XDG_DATA_HOME", each.dataHome},
                                                 {"XDG_DATA_DIRS", each.dataDirs},
                                                 {"XDG_CONFIG_HOME", each.configHome},
                                                 {"XDG_CONFIG_DIRS", each.configDirs}};
        const XdgUserFolders folders;
        EXPECT_EQ(folders.dataFolders(), each.data);
        EXPECT_EQ(folders.configFolders(), each.config);
        EXPECT_EQ(folders.applicationSupport(), each.data.front());
    }
}

TEST(XdgUserFolders, FindTheHomeInTheUserDatabaseWhenTheEnvironmentHasNone)
{
    for (const std::optional<std::string>& value : {std::optional<std::string>(), {""}, {"relative"}}) {
        const EnvironmentVariable home("HOME", value);
        const std::filesystem::path found = XdgUserFolders().home();
        EXPECT_TRUE(found.is_absolute()) << found;
        EXPECT_NE(found, "/");
    }
}

}
}
