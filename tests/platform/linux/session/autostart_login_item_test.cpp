// SPDX-License-Identifier: MIT
#include "harness/wait_until.h"
#include "platform/linux/session/autostart_login_item.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/memory_files.h"
#include "support/temporary_folder.h"

#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace chimewell::test {
namespace {

constexpr char ours[] = "own/autostart/app.chimewell.Chimewell.desktop";
constexpr char systems[] = "system/autostart/app.chimewell.Chimewell.desktop";

class AutostartLoginItemTest : public ::testing::Test {
protected:
    AutostartLoginItemTest() { ::chmod(program.c_str(), 0755); }

    static bool has(const char* tool)
    {
        return !QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty();
    }
    /// What the program prints, and its exit status.
    static std::pair<std::string, int> run(const char* tool, const QStringList& arguments)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QString::fromLatin1(tool), arguments);
        process.waitForFinished();
        return {process.readAll().toStdString(), process.exitCode()};
    }

    TemporaryFolder folder;
    const EnvironmentVariable own{"XDG_CONFIG_HOME", folder.path() / "own"};
    const EnvironmentVariable shared{"XDG_CONFIG_DIRS", folder.path() / "system"};
    // A path that needs every kind of quoting, and a blank at its end, but no percent sign, which GLib does
    // not find in a program's path. The marker is written beside the program.
    const std::filesystem::path program =
        folder.write("a \"b\" $c `d` \\e/start ", "#!/bin/sh\nprintf started > \"${0%/*}/marker\"\n");
    const XdgUserFolders folders;
    PosixFiles files;
    AutostartLoginItem item{folders, files, {program}};
};

TEST_F(AutostartLoginItemTest, SwitchesOnAndOff)
{
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_TRUE(item.registerItem());
    EXPECT_TRUE(item.isEnabled());
    EXPECT_TRUE(item.registerItem());
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(folder.names("own/autostart").empty());
}

TEST_F(AutostartLoginItemTest, TellsWhatTheNextLogInWillReallyDo)
{
    const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP", "Some:KDE");
    const auto entry = [](const std::string& lines) {
        return "[Desktop Entry]\nType=Application\nName=X\n" + lines;
    };
    struct Case {
        std::string user, system; ///< Contents of the two files; empty for none.
        bool enabled;
    };
    for (const Case& each : {
             Case{entry("Exec=sh\n"), "", true},
             Case{entry("Exec=sh -c true\nHidden=false\nX-GNOME-Autostart-enabled=true\n"), "", true},
             Case{entry("Exec=sh\nHidden=true\n"), "", false},
             Case{entry("Exec=sh\nX-GNOME-Autostart-enabled=false\n"), "", false},
             Case{entry("Exec=/gone/chimewell\n"), "", false},
             Case{entry("Exec=sh\nTryExec=/gone/chimewell\n"), "", false},
             Case{entry("Exec=\"sh\n"), "", false},
             Case{entry(""), "", false},
             Case{"garbage", "", false},
             Case{entry("Exec=sh\nOnlyShowIn=GNOME;XFCE;\n"), "", false},
             Case{entry("Exec=sh\nOnlyShowIn=GNOME;KDE;\n"), "", true},
             Case{entry("Exec=sh\nNotShowIn=KDE;\n"), "", false},
             Case{"", entry("Exec=sh\n"), true},
             Case{entry("Hidden=true\n"), entry("Exec=sh\n"), false},
             Case{entry("Exec=sh\n"), entry("Hidden=true\n"), true},
         }) {
        std::filesystem::remove(folder.path() / ours);
        std::filesystem::remove(folder.path() / systems);
        if (!each.user.empty()) folder.write(ours, each.user);
        if (!each.system.empty()) folder.write(systems, each.system);
        EXPECT_EQ(item.isEnabled(), each.enabled) << each.user << "--\n" << each.system;
    }
}

TEST_F(AutostartLoginItemTest, OverridesTheSystemsEntryInsteadOfUncoveringIt)
{
    folder.write(systems, "[Desktop Entry]\nType=Application\nName=X\nExec=sh\n");
    EXPECT_TRUE(item.isEnabled());
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(item.registerItem());
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(AutostartLoginItemTest, ReportsTheSystemsWords)
{
    folder.write("own", "a file where the folder should be");
    EXPECT_EQ(english(item.registerItem().error()), "Not a directory");
    EXPECT_EQ(english(item.unregisterItem().error()), "Not a directory");
    EXPECT_FALSE(item.isEnabled());

    MemoryFiles disk;
    disk.full = true;
    AutostartLoginItem onFullDisk(folders, disk, {program});
    EXPECT_EQ(english(onFullDisk.registerItem().error()), "No space left on device");
}

TEST_F(AutostartLoginItemTest, WritesAValidFileThatOthersStart)
{
    if (!has("desktop-file-validate") || !has("gio"))
        GTEST_SKIP() << "desktop-file-validate or gio is not installed";
    ASSERT_TRUE(item.registerItem());
    const QString file = QString::fromStdString(folder.path() / ours);
    EXPECT_EQ(run("desktop-file-validate", {file}), (std::pair<std::string, int>{"", 0}));
    EXPECT_EQ(run("gio", {QStringLiteral("launch"), file}), (std::pair<std::string, int>{"", 0}));
    EXPECT_TRUE(waitUntil([&] { return folder.read(program.parent_path() / "marker") == "started"; }));
}

TEST_F(AutostartLoginItemTest, ASessionStarterObeysTheSwitch)
{
    if (!has("dex")) GTEST_SKIP() << "dex is not installed";
    const std::filesystem::path plain = folder.write("plain/start", folder.read(program));
    ::chmod(plain.c_str(), 0755);
    AutostartLoginItem simple(folders, files, {plain});
    const QStringList arguments = {QStringLiteral("--autostart"), QStringLiteral("--environment"),
                                   QStringLiteral("X")};

    ASSERT_TRUE(simple.registerItem());
    run("dex", arguments);
    EXPECT_TRUE(waitUntil([&] { return folder.read("plain/marker") == "started"; }));

    folder.write(systems, "[Desktop Entry]\nType=Application\nName=X\nExec=" + plain.string() + "\n");
    const QStringList dry = QStringList(arguments) << QStringLiteral("--dry-run");
    EXPECT_NE(run("dex", dry).first.find(plain), std::string::npos);
    ASSERT_TRUE(simple.unregisterItem());
    EXPECT_EQ(run("dex", dry).first.find(plain), std::string::npos);
}

}
}
