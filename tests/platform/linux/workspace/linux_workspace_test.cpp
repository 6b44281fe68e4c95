// SPDX-License-Identifier: MIT
#include "events/session_focus.h"
#include "harness/child_process.h"
#include "harness/private_bus.h"
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/activation.h"
#include "platform/linux/workspace/linux_workspace.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <QObject>
#include <QStandardPaths>
#include <QStringList>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <sys/stat.h>

namespace chimewell::test {
namespace {

/// A file manager that opens nothing.
class RecordingFileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList calls;
public Q_SLOTS:
    // NOLINTBEGIN(readability-identifier-naming): names on the bus
    void ShowFolders(const QStringList& uris, const QString& startup)
    {
        calls.append(QStringLiteral("folders ") + uris.join(u' ') + u' ' + startup);
    }
    void ShowItems(const QStringList& uris, const QString& startup)
    {
        calls.append(QStringLiteral("items ") + uris.join(u' ') + u' ' + startup);
    }
    // NOLINTEND(readability-identifier-naming)
};

/// A terminal that is started over the bus.
class RecordingApplication : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    QStringList tokens;
public Q_SLOTS:
    // NOLINTNEXTLINE(readability-identifier-naming): name on the bus
    void Activate(const QVariantMap& platformData)
    {
        tokens.append(platformData.value(QStringLiteral("activation-token")).toString());
    }
};

const TerminalApplication& terminal(std::string_view term)
{
    return *findTerminalApplication(term);
}

class LinuxWorkspaceTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    }

    /// A program that writes its token, folder and arguments into `program`.log.
    std::string reporting(const std::string& program)
    {
        const auto file = folder.write(
            "bin/" + program,
            "#!/bin/sh\nexec > \"$0.part\"\necho \"token=$XDG_ACTIVATION_TOKEN"
            " startup=$DESKTOP_STARTUP_ID\"\npwd\nprintf '%s\\n' \"$@\"\nmv \"$0.part\" \"$0.log\"\n");
        ::chmod(file.c_str(), 0755);
        return file;
    }
    std::string report(const std::string& program)
    {
        const std::string log = "bin/" + program + ".log";
        EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(folder.path() / log); })) << program;
        return folder.read(log);
    }
    void install(const std::string& id, const std::string& lines)
    {
        folder.write("data/applications/" + id + ".desktop",
                     "[Desktop Entry]\nType=Application\nName=Terminal\n" + lines);
    }
    LinuxWorkspace workspace(const std::optional<std::string>& display = std::nullopt)
    {
        return LinuxWorkspace({.folders = folders,
                               .files = files,
                               .tokens = tokens,
                               .bus = bus.connection(QStringLiteral("workspace")),
                               .xDisplay = display});
    }

    TemporaryFolder folder;
    const EnvironmentVariable home{"HOME", folder.path()};
    const EnvironmentVariable data{"XDG_DATA_HOME", folder.path() / "data"};
    const EnvironmentVariable path{"PATH", (folder.path() / "bin").string() + ":/usr/bin:/bin"};
    const EnvironmentVariable oldToken{"XDG_ACTIVATION_TOKEN", "ours"};
    const std::string homeLine = std::filesystem::canonical(folder.path()).string() + "\n";
    PrivateBus bus;
    const XdgUserFolders folders = [] {
        const EnvironmentVariable shared("XDG_DATA_DIRS", "/none"); // of what the machine has, nothing
        return XdgUserFolders();
    }();
    PosixFiles files;
    ActivationTokens tokens;
};

TEST_F(LinuxWorkspaceTest, LaunchesByCommandLineInTheHomeFolderWithTheToken)
{
    install("kitty", "Exec=" + reporting("kitty") + " --title \"a b\" %U\nStartupNotify=true\n");
    LinuxWorkspace desktop = workspace();
    EXPECT_TRUE(desktop.isInstalled(terminal("kitty")));
    EXPECT_FALSE(desktop.isInstalled(terminal("Alacritty")));
    EXPECT_FALSE(desktop.isInstalled(terminal("iTerm.app")));
    EXPECT_FALSE(desktop.activateRunning(terminal("kitty")));
    tokens.put("permission");
    desktop.openActivating(terminal("kitty"));
    EXPECT_EQ(report("kitty"), "token=permission startup=permission\n" + homeLine + "--title\na b\n");
}

TEST_F(LinuxWorkspaceTest, WithoutATokenALaunchedProgramDoesNotInheritOurs)
{
    std::filesystem::create_directory(folder.path() / "elsewhere");
    install("code",
            "Exec=" + reporting("code") + " x\nPath=" + (folder.path() / "elsewhere").string() + "\n");
    workspace().openActivating(terminal("vscode"));
    EXPECT_EQ(report("code"), "token= startup=\n" +
                                  std::filesystem::canonical(folder.path() / "elsewhere").string() + "\nx\n");
}

TEST_F(LinuxWorkspaceTest, ActivatesOverTheBusWhereTheApplicationAsksForIt)
{
    install("com.mitchellh.ghostty", "DBusActivatable=true\nExec=" + reporting("ghostty") + " x\n");
    LinuxWorkspace desktop = workspace();
    RecordingApplication application;
    QDBusConnection service = bus.connection(QStringLiteral("ghostty"));
    service.registerObject(QStringLiteral("/com/mitchellh/ghostty"), &application,
                           QDBusConnection::ExportAllSlots);
    service.registerService(QStringLiteral("com.mitchellh.ghostty"));
    tokens.put("permission");
    desktop.openActivating(terminal("ghostty"));
    ASSERT_TRUE(waitUntil([&] { return !application.tokens.isEmpty(); }));
    EXPECT_EQ(application.tokens, QStringList{QStringLiteral("permission")});

    // Nobody answers any more: the command line serves. A second token proves that this is its launch.
    service.unregisterService(QStringLiteral("com.mitchellh.ghostty"));
    tokens.put("second");
    desktop.openActivating(terminal("ghostty"));
    EXPECT_EQ(report("ghostty"), "token=second startup=second\n" + homeLine + "x\n");
}

TEST_F(LinuxWorkspaceTest, AsksTheFileManagerForFoldersOnly)
{
    RecordingFileManager manager;
    QDBusConnection service = bus.connection(QStringLiteral("files"));
    service.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager,
                           QDBusConnection::ExportAllSlots);
    service.registerService(QStringLiteral("org.freedesktop.FileManager1"));
    reporting("gio");

    const std::filesystem::path odd = folder.path() / "50% \xFFü #?";
    std::filesystem::create_directory(odd);
    const auto file = folder.write("file.desktop", "[Desktop Entry]\nType=Application\nExec=false\n");
    LinuxWorkspace desktop = workspace();
    SessionFocus focus(desktop);
    const auto stat = folder.write(
        "bin/stat", "#!/bin/sh\ncase $5 in */hanging) echo $$ >\"$0.id\"; exec sleep 600;; esac\n"
                    "exec /usr/bin/stat \"$@\"\n");
    ::chmod(stat.c_str(), 0755);
    focus.focusSession(std::nullopt, folder.path() / "hanging"); // its server is gone
    focus.focusSession(std::nullopt, folder.path() / "none");
    tokens.put("permission");
    focus.focusSession(std::nullopt, odd);
    ASSERT_TRUE(waitUntil([&] { return manager.calls.size() == 1; }));
    focus.focusSession(std::nullopt, file);
    ASSERT_TRUE(waitUntil([&] { return manager.calls.size() == 2; }));
    const QString base = QStringLiteral("file://") + QString::fromStdString(folder.path());
    EXPECT_EQ(manager.calls,
              (QStringList{QStringLiteral("folders ") + base +
                               QStringLiteral("/50%25%20%FF%C3%BC%20%23%3F permission"),
                           QStringLiteral("items ") + base + QStringLiteral("/file.desktop ")}));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "bin/gio.log"));
    const int asking = std::stoi(folder.read("bin/stat.id"));
    EXPECT_TRUE(waitUntil([&] { return ::kill(asking, 0) != 0; })) << "the one who asks is not given up";
}

TEST_F(LinuxWorkspaceTest, WithoutAFileManagerTheUsersChoiceOpensTheFolder)
{
    const std::string opener = reporting("gio");
    const std::string uri = "file://" + folder.path().string();
    std::filesystem::create_directory(folder.path() / "a b");
    LinuxWorkspace desktop = workspace();
    tokens.put("permission");
    EXPECT_TRUE(desktop.openFolder(folder.path() / "a b"));
    EXPECT_EQ(report("gio"),
              "token=permission startup=permission\n" + homeLine + "open\n" + uri + "/a%20b\n");
    std::filesystem::remove(opener + ".log");
    desktop.reveal(folder.write("a b/file", ""));
    EXPECT_EQ(report("gio"), "token= startup=\n" + homeLine + "open\n" + uri + "/a%20b\n");
}

TEST_F(LinuxWorkspaceTest, WithNeitherBusNorOpenerNoFileManagerIsKnown)
{
    const EnvironmentVariable empty("PATH", folder.path() / "none");
    LinuxWorkspace desktop({.folders = folders,
                            .files = files,
                            .tokens = tokens,
                            .bus = QDBusConnection(QStringLiteral("never connected")),
                            .xDisplay = std::nullopt});
    EXPECT_FALSE(desktop.openFolder(folder.path()));
    desktop.reveal(folder.path());
}

class LinuxWorkspaceOnScreenTest : public LinuxWorkspaceTest {
protected:
    void SetUp() override
    {
        if (!display.unavailable().empty()) GTEST_SKIP() << display.unavailable();
        for (const char* tool : {"xterm", "xdotool"})
            if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
                GTEST_SKIP() << tool << " is not installed";
        LinuxWorkspaceTest::SetUp();
    }
    bool comesForward(const std::string& title)
    {
        return waitUntil(
            [&] { return run({"xdotool", "getactivewindow", "getwindowname"}).output.contains(title); });
    }

    PrivateSession display{{"Xvfb", "openbox"}};
};

TEST_F(LinuxWorkspaceOnScreenTest, BringsARunningTerminalForwardInsteadOfStartingAnother)
{
    install("kitty", "Exec=" + reporting("kitty") + "\n");
    const auto window = [&](const char* windowClass, const char* title) {
        return std::make_unique<ChildProcess>(
            std::vector<std::string>{"xterm", "-class", windowClass, "-T", title, "-e", "sleep", "600"});
    };
    LinuxWorkspace desktop = workspace(std::getenv("DISPLAY"));
    auto running = window("kitty", "terminal");
    ASSERT_TRUE(comesForward("terminal"));
    const auto other = window("Other", "other");
    ASSERT_TRUE(comesForward("other"));
    tokens.put("first");
    desktop.openActivating(terminal("kitty"));
    EXPECT_TRUE(comesForward("terminal"));

    // Only this second call, with the window gone, starts the program; the first one's token is spent.
    running.reset();
    ASSERT_TRUE(comesForward("other"));
    ASSERT_FALSE(std::filesystem::exists(folder.path() / "bin/kitty.log"));
    desktop.openActivating(terminal("kitty"));
    EXPECT_TRUE(report("kitty").starts_with("token= "));
}

TEST_F(LinuxWorkspaceOnScreenTest, ARealFileManagerIsStartedAndShowsTheFolder)
{
    const QString thunar = QStandardPaths::findExecutable(QStringLiteral("thunar"));
    if (thunar.isEmpty()) GTEST_SKIP() << "thunar is not installed";
    bus.offer("org.freedesktop.FileManager1",
              std::string("/usr/bin/env GTK_USE_PORTAL=0 GDK_BACKEND=x11 NO_AT_BRIDGE=1 DISPLAY=") +
                  std::getenv("DISPLAY") + " " + thunar.toStdString() + " --daemon");
    std::filesystem::create_directory(folder.path() / "project ü");
    EXPECT_TRUE(workspace(std::getenv("DISPLAY")).openFolder(folder.path() / "project ü"));
    EXPECT_TRUE(comesForward("project ü"));
}

}
}

#include "linux_workspace_test.moc"
