// SPDX-License-Identifier: MIT
#include "platform/linux/session/autostart_login_item.h"

#include "harness/child_process.h"
#include "harness/wait_until.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/memory_files.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace chimewell::test {
namespace {

constexpr char ours[] = "own/autostart/app.chimewell.Chimewell.desktop";
constexpr char systems[] = "system/autostart/app.chimewell.Chimewell.desktop";

class AutostartLoginItemTest : public ::testing::Test {
protected:
    /// A program that writes a marker beside itself.
    std::filesystem::path program(const std::string& name)
    {
        const auto file = folder.write(name, "#!/bin/sh\nprintf started > \"${0%/*}/marker\"\n");
        ::chmod(file.c_str(), 0755);
        return file;
    }
    bool isStarted(const std::filesystem::path& started)
    {
        return waitUntil([&] { return folder.read(started.parent_path() / "marker") == "started"; });
    }

    TemporaryFolder folder;
    const EnvironmentVariable own{"XDG_CONFIG_HOME", folder.path() / "own"};
    const EnvironmentVariable shared{"XDG_CONFIG_DIRS", folder.path() / "system"};
    const XdgUserFolders folders;
    PosixFiles files;
    const std::filesystem::path plain = program("plain/start");
    AutostartLoginItem item{folders, files, {plain}};
};

TEST_F(AutostartLoginItemTest, TellsWhatTheNextLogInWillReallyDo)
{
    const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP", "Some:KDE");
    const struct {
        std::string user, system; ///< Lines of the two entries; empty for no file.
        bool isEnabled;
    } cases[] = {
        {"", "", false},
        {"Exec=sh\n", "", true},
        {"Exec=sh -c true\nHidden=false\nX-GNOME-Autostart-enabled=true\n", "", true},
        {"Exec=sh\nHidden=true\n", "", false},
        {"Exec=sh\nX-GNOME-Autostart-enabled=false\n", "", false},
        {"Exec=/gone/chimewell\n", "", false},
        {"Exec=sh\nTryExec=/gone/chimewell\n", "", false},
        {"Exec=\"sh\n", "", false},
        {"Name=Y\n", "", false},
        {"[garbage", "", false},
        {"Exec=sh\nOnlyShowIn=GNOME;XFCE;\n", "", false},
        {"Exec=sh\nOnlyShowIn=GNOME;KDE;\n", "", true},
        {"Exec=sh\nNotShowIn=KDE;\n", "", false},
        {"", "Exec=sh\n", true},
        {"Hidden=true\n", "Exec=sh\n", false},
        {"Exec=sh\n", "Hidden=true\n", true},
    };
    for (const auto& each : cases) {
        const auto write = [&](const char* file, const std::string& lines) {
            std::filesystem::remove(folder.path() / file);
            if (!lines.empty()) folder.write(file, (lines[0] == '[' ? "" : "[Desktop Entry]\n") + lines);
        };
        write(ours, each.user);
        write(systems, each.system);
        EXPECT_EQ(item.isEnabled(), each.isEnabled) << each.user << "--\n" << each.system;
        // Whatever the files say, the item switches it on and off.
        EXPECT_TRUE(item.registerItem());
        EXPECT_TRUE(item.isEnabled());
        EXPECT_TRUE(item.unregisterItem());
        EXPECT_FALSE(item.isEnabled());
        EXPECT_EQ(std::filesystem::exists(folder.path() / ours), !each.system.empty());
    }
}

TEST_F(AutostartLoginItemTest, ReportsTheErrorOfTheSystem)
{
    folder.write("own", "a file instead of the folder");
    EXPECT_EQ(english(item.registerItem().error()), "Not a directory");
    EXPECT_EQ(english(item.unregisterItem().error()), "Not a directory");
    EXPECT_FALSE(item.isEnabled());

    MemoryFiles disk;
    disk.full = true;
    AutostartLoginItem onFullDisk(folders, disk, {plain});
    EXPECT_EQ(english(onFullDisk.registerItem().error()), "No space left on device");
}

TEST_F(AutostartLoginItemTest, WritesAValidFileThatOthersStart)
{
    // A path that needs every kind of quoting, but no percent sign, which GLib does not find in a path.
    const auto odd = program("a \"b\" $c `d` \\e/start ");
    ASSERT_TRUE(AutostartLoginItem(folders, files, {odd}).registerItem());
    const std::string file = folder.path() / ours;
    if (run({"which", "desktop-file-validate", "gio"}).status != 0)
        GTEST_SKIP() << "desktop-file-validate or gio is not installed";
    EXPECT_EQ(run({"desktop-file-validate", file}).output, "");
    EXPECT_EQ(run({"gio", "launch", file}).status, 0);
    EXPECT_TRUE(isStarted(odd));
}

TEST_F(AutostartLoginItemTest, ASessionStarterObeysTheSwitch)
{
    if (run({"which", "dex"}).status != 0) GTEST_SKIP() << "dex is not installed";
    ASSERT_TRUE(item.registerItem());
    run({"dex", "--autostart", "--environment", "X"});
    EXPECT_TRUE(isStarted(plain));

    folder.write(systems, "[Desktop Entry]\nType=Application\nName=X\nExec=" + plain.string() + "\n");
    for (const bool isOn : {true, false}) {
        ASSERT_TRUE(isOn ? item.registerItem() : item.unregisterItem());
        const auto dry = run({"dex", "--autostart", "--environment", "X", "--dry-run"}).output;
        EXPECT_EQ(dry.contains(plain.string()), isOn) << dry;
    }
}

}
}
