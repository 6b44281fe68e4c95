// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/desktop_entry.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using Words = std::vector<std::string>;

std::string entryText(const std::string& lines)
{
    return "[Desktop Entry]\nType=Application\nName=Name\n" + lines;
}

/// An entry without any value for a text that is none.
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
    EXPECT_FALSE(DesktopEntry::parse(""));
}

TEST(DesktopExec, SplitsAndExpandsAsTheStandardSays)
{
    struct Case {
        std::string exec;
        std::optional<Words> words;
    };
    const std::filesystem::path file = "/x y/a.desktop";
    for (const Case& each : {
             Case{"kitty", Words{"kitty"}},
             Case{"  a   b\\tc ", Words{"a", "b", "c"}},
             Case{R"("/opt/my app/run" "a b" "")", Words{"/opt/my app/run", "a b", ""}},
             Case{R"(run "\\"q\\" \\$HOME \\`x\\` \\\\")", Words{"run", R"("q" $HOME `x` \)"}},
             Case{"env A=\"b c\"d run", Words{"env", "A=b cd", "run"}},
             Case{"code --new %F", Words{"code", "--new"}},
             Case{"a %f %u %U %d %D %n %N %v %m --x=%u", Words{"a", "--x="}},
             Case{"a 100%% %c %k %i", Words{"a", "100%", "Name", "/x y/a.desktop", "--icon", "icon"}},
             Case{"a %z", {}},
             Case{"a %", {}},
             Case{"a \"b", {}},
             Case{"", {}},
             Case{"%f", {}},
         }) {
        const DesktopEntry entry = parsed(entryText("Icon=icon\nExec=" + each.exec + "\n"));
        EXPECT_EQ(entry.commandLine(file), each.words) << each.exec;
    }
}

TEST(DesktopExec, WritesWhatItReads)
{
    for (const Words& command : {
             Words{"/usr/bin/chimewell"},
             Words{"/home/a b/$x/`y`/\"z\"/\\n/50%/ü/'q'/#1/*/chimewell", "", "--flag", "%u"},
             Words{" leading", "tab\tnew\nline\rend "},
         }) {
        const DesktopEntry entry = parsed(entryText("Exec=" + execValue(command) + "\n"));
        EXPECT_EQ(entry.commandLine("/x"), command) << execValue(command);
    }
}

class DesktopEntriesTest : public ::testing::Test {
protected:
    bool isFound(std::string_view id) { return findDesktopEntry(id, folders, files).has_value(); }

    TemporaryFolder folder;
    const EnvironmentVariable own{"XDG_DATA_HOME", folder.path() / "own"};
    const EnvironmentVariable shared{"XDG_DATA_DIRS",
                                     (folder.path() / "a").string() + ":" + (folder.path() / "b").string()};
    const XdgUserFolders folders;
    PosixFiles files;
};

TEST_F(DesktopEntriesTest, FindsTheFirstOfAName)
{
    folder.write("a/applications/kitty.desktop", entryText("Exec=from-a\n"));
    folder.write("b/applications/kitty.desktop", entryText("Exec=from-b\n"));
    folder.write("b/applications/code.desktop", entryText("Exec=code\n"));
    folder.write("b/applications/kde/sub/x-y.desktop", entryText("Exec=x\n"));
    const InstalledEntry kitty = findDesktopEntry("kitty", folders, files).value_or(InstalledEntry());
    EXPECT_EQ(kitty.entry.text("Exec"), "from-a");
    EXPECT_EQ(kitty.file, folder.path() / "a/applications/kitty.desktop");
    EXPECT_TRUE(isFound("code"));
    EXPECT_TRUE(isFound("kde-sub-x-y"));
    EXPECT_FALSE(isFound("Code"));
    EXPECT_FALSE(isFound("none"));
    EXPECT_FALSE(isFound(""));
}

TEST_F(DesktopEntriesTest, AnEntryTheUserDeletedOrWhoseProgramIsGoneIsNotInstalled)
{
    for (const char* id : {"deleted", "untried", "broken", "tried"})
        folder.write("a/applications/" + std::string(id) + ".desktop", entryText("Exec=x\n"));
    folder.write("own/applications/deleted.desktop", entryText("Hidden=true\n"));
    folder.write("own/applications/untried.desktop", entryText("Exec=x\nTryExec=/no/such/program\n"));
    folder.write("own/applications/broken.desktop", "nothing of the kind");
    folder.write("own/applications/tried.desktop", entryText("Exec=x\nTryExec=sh\n"));
    EXPECT_FALSE(isFound("deleted"));
    EXPECT_FALSE(isFound("untried"));
    EXPECT_FALSE(isFound("broken"));
    EXPECT_TRUE(isFound("tried"));
}

}
}
