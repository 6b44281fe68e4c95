// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/desktop_entry.h"

#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using Words = std::vector<std::string>;

std::string entryText(const std::string& lines)
{
    return "[Desktop Entry]\nType=Application\nName=Name\nIcon=icon\n" + lines;
}

TEST(DesktopEntry, ReadsItsOwnGroupOnly)
{
    const auto entry = DesktopEntry::parse("[Other]\nName=wrong\n"
                                           "[Desktop Entry]\r\n"
                                           "#Name=comment\nName = two\\swords \n"
                                           "Name[de]=zwei\nName=again\nno entry\n"
                                           "OnlyShowIn=KDE;X\\;Y;\n"
                                           "Icon=a\\\\b\\q\\\n"
                                           "[Desktop Action new]\nExec=wrong\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->text("Name"), "two words");
    EXPECT_EQ(entry->text("Icon"), "a\\b\\q\\");
    EXPECT_EQ(entry->text("Exec"), "");
    EXPECT_EQ(entry->list("OnlyShowIn"), (Words{"KDE", "X;Y"}));
}

TEST(DesktopEntry, SplitsAndExpandsItsCommandAsTheStandardSays)
{
    const auto commandLine = [](const std::string& exec) {
        return DesktopEntry::parse(entryText("Exec=" + exec + "\n"))->commandLine("/x y/a.desktop");
    };
    const struct {
        std::string exec;
        std::optional<Words> words;
    } cases[] = {
        {"  a   b\\tc ", Words{"a", "b", "c"}},
        {R"("/opt/my app/run" "a b" "")", Words{"/opt/my app/run", "a b", ""}},
        {R"(run "\\"q\\" \\$HOME \\`x\\` \\\\")", Words{"run", R"("q" $HOME `x` \)"}},
        {"env A=\"b c\"d run", Words{"env", "A=b cd", "run"}},
        {"a %f %u %U %F %d %D %n %N %v %m --x=%u", Words{"a", "--x="}},
        {"a 100%% %c %k %i", Words{"a", "100%", "Name", "/x y/a.desktop", "--icon", "icon"}},
        {"a %z", {}},
        {"a %", {}},
        {"a \"b", {}},
        {"%f", {}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(commandLine(each.exec), each.words) << each.exec;
}

TEST(DesktopEntry, IsFoundInTheFirstFolderThatHasIt)
{
    const TemporaryFolder folder;
    const std::string path = folder.path();
    const EnvironmentVariable own("XDG_DATA_HOME", path + "/own");
    const EnvironmentVariable shared("XDG_DATA_DIRS", path + "/a:" + path + "/b");
    const XdgUserFolders folders;
    PosixFiles files;
    const auto install = [&](const std::string& file, const std::string& lines) {
        folder.write(file + ".desktop", entryText("Exec=x\n" + lines));
        return std::filesystem::path(path) / (file + ".desktop");
    };
    const auto kitty = install("a/applications/kitty", "");
    const auto inner = install("b/applications/kde/sub/x-y", "");
    const auto tried = install("own/applications/tried", "TryExec=sh\n");
    for (const char* name : {"kitty", "deleted", "untried"})
        install(std::string("b/applications/") + name, "");
    install("own/applications/deleted", "Hidden=true\n");
    install("own/applications/untried", "TryExec=/no/such/program\n");
    const std::pair<const char*, std::filesystem::path> cases[] = {
        {"kitty", kitty}, {"kde-sub-x-y", inner}, {"tried", tried}, {"deleted", ""},
        {"untried", ""},  {"Kitty", ""},          {"", ""}};
    for (const auto& [id, file] : cases) {
        const auto found = findDesktopEntry(id, folders, files);
        EXPECT_EQ(found ? found->file : "", file) << id;
    }
}

}
}
