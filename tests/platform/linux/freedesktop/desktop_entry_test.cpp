// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/desktop_entry.h"

#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using Words = std::vector<std::string>;

std::string entryText(const std::string& lines)
{
    return "[Desktop Entry]\nType=Application\nName=Name\nIcon=icon\n" + lines;
}

/// An empty entry for a text that is none.
DesktopEntry parsed(const std::string& text)
{
    return DesktopEntry::parse(text).value_or(DesktopEntry());
}

TEST(DesktopEntry, ReadsItsOwnGroupOnly)
{
    const DesktopEntry entry = parsed("# comment\n"
                                      "[Other]\nName=wrong\n"
                                      "[Desktop Entry]\r\n"
                                      "Name = two\\swords \n"
                                      "Name[de]=zwei\nName=again\nno entry\n"
                                      "Hidden=false\nNoDisplay=true\n"
                                      "OnlyShowIn=KDE;X\\;Y;\n"
                                      "Icon=a\\\\b\\q\\\n"
                                      "[Desktop Action new]\nExec=wrong\n");
    EXPECT_EQ(entry.text("Name"), "two words");
    EXPECT_EQ(entry.text("Name[de]"), "zwei");
    EXPECT_EQ(entry.text("Exec"), "");
    EXPECT_EQ(entry.text("Icon"), "a\\b\\q\\");
    EXPECT_EQ(entry.list("OnlyShowIn"), (Words{"KDE", "X;Y"}));
    EXPECT_TRUE(entry.flag("NoDisplay"));
    EXPECT_FALSE(entry.flag("Hidden", true));
    EXPECT_TRUE(entry.flag("Missing", true));
    EXPECT_FALSE(DesktopEntry::parse("[Other]\nName=x\n"));
}

TEST(DesktopEntry, SplitsAndExpandsItsCommandAsTheStandardSays)
{
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
        {"", {}},
        {"%f", {}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(parsed(entryText("Exec=" + each.exec + "\n")).commandLine("/x y/a.desktop"), each.words)
            << each.exec;
    for (const Words& command : {
             Words{"/home/a b/$x/`y`/\"z\"/\\n/50%/ü/'q'/#1/*/chimewell", "", "--flag", "%u"},
             Words{" leading", "tab\tnew\nline\rend "},
         }) {
        const std::string written = execValue(command);
        EXPECT_EQ(parsed(entryText("Exec=" + written + "\n")).commandLine("/x"), command) << written;
    }
}

TEST(DesktopEntry, IsFoundInTheFirstFolderThatHasIt)
{
    const TemporaryFolder folder;
    const std::string path = folder.path();
    const EnvironmentVariable own("XDG_DATA_HOME", path + "/own");
    const EnvironmentVariable shared("XDG_DATA_DIRS", path + "/a:" + path + "/b");
    const XdgUserFolders folders;
    PosixFiles files;
    for (const char* file : {"a/applications/kitty", "b/applications/kitty", "b/applications/kde/sub/x-y",
                             "a/applications/deleted", "a/applications/untried", "a/applications/broken"})
        folder.write(std::string(file) + ".desktop", entryText(std::string("Exec=") + file + "\n"));
    folder.write("own/applications/deleted.desktop", entryText("Hidden=true\n"));
    folder.write("own/applications/untried.desktop", entryText("Exec=x\nTryExec=/no/such/program\n"));
    folder.write("own/applications/broken.desktop", "no entry");
    folder.write("own/applications/tried.desktop", entryText("Exec=x\nTryExec=sh\n"));
    const struct {
        const char* id;
        std::optional<std::string> exec;
    } cases[] = {
        {"kitty", "a/applications/kitty"},
        {"kde-sub-x-y", "b/applications/kde/sub/x-y"},
        {"tried", "x"},
        {"deleted", {}},
        {"untried", {}},
        {"broken", {}},
        {"Kitty", {}},
        {"none", {}},
        {"", {}},
    };
    for (const auto& each : cases) {
        const auto found = findDesktopEntry(each.id, folders, files);
        EXPECT_EQ(found.transform([](const auto& entry) { return entry.entry.text("Exec"); }), each.exec)
            << each.id;
    }
    EXPECT_EQ(findDesktopEntry("kitty", folders, files)->file, path + "/a/applications/kitty.desktop");
}

}
}
