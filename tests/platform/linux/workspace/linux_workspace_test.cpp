// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/linux_workspace.h"

#include "events/session_focus.h"
#include "harness/child_process.h"
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/freedesktop/activation.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/xdg_user_folders.h"
#include "support/bus_object.h"
#include "support/environment_variable.h"
#include "support/program_folder.h"
#include "support/temporary_folder.h"

#include <QDBusArgument>
#include <QStringList>
#include <QVariantMap>

#include <csignal>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace Qt::StringLiterals;

const TerminalApplication& terminal(std::string_view term)
{
    return *findTerminalApplication(term);
}

class LinuxWorkspaceTest : public ::testing::Test {
protected:
    explicit LinuxWorkspaceTest(const std::vector<std::string>& services = {"dbus-daemon"}) : bus(services) {}
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
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
                               .bus = bus.connection(u"workspace"_s),
                               .xDisplay = display});
    }

    TemporaryFolder folder;
    const EnvironmentVariable home{"HOME", folder.path()};
    const EnvironmentVariable data{"XDG_DATA_HOME", folder.path() / "data"};
    ProgramFolder programs;
    const EnvironmentVariable oldToken{"XDG_ACTIVATION_TOKEN", "ours"};
    const std::string homeLine = std::filesystem::canonical(folder.path()).string() + "\n";
    const std::string uri = "file://" + folder.path().string();
    PrivateSession bus;
    const XdgUserFolders folders = [] {
        const EnvironmentVariable shared("XDG_DATA_DIRS", "/none"); // nothing that the machine has
        return XdgUserFolders();
    }();
    PosixFiles files;
    ActivationTokens tokens;
};

TEST_F(LinuxWorkspaceTest, LaunchesByCommandLineInTheHomeFolderWithTheToken)
{
    install("kitty", "Exec=" + programs.add("kitty") + " --title \"a b\" %U\nStartupNotify=true\n");
    LinuxWorkspace desktop = workspace();
    EXPECT_TRUE(desktop.isInstalled(terminal("kitty")));
    EXPECT_FALSE(desktop.isInstalled(terminal("Alacritty")));
    EXPECT_FALSE(desktop.isInstalled(terminal("iTerm.app")));
    EXPECT_FALSE(desktop.activateRunning(terminal("kitty")));
    tokens.put("permission");
    desktop.openActivating(terminal("kitty"));
    EXPECT_EQ(programs.report("kitty"),
              "token=permission startup=permission\n" + homeLine + "--title\na b\n");

    // Without a token the program does not inherit ours. Its own folder comes before the home folder.
    std::filesystem::create_directory(folder.path() / "elsewhere");
    install("kitty", "Exec=" + programs.add("kitty") + " x\nPath=" + folder.path().string() + "/elsewhere\n");
    desktop.openActivating(terminal("kitty"));
    EXPECT_EQ(programs.report("kitty"), "token= startup=\n" +
                                            std::filesystem::canonical(folder.path() / "elsewhere").string() +
                                            "\nx\n");
}

TEST_F(LinuxWorkspaceTest, ActivatesOverTheBusWhereTheApplicationAsksForIt)
{
    install("com.mitchellh.ghostty", "DBusActivatable=true\nExec=" + programs.add("ghostty") + " x\n");
    LinuxWorkspace desktop = workspace();
    std::optional<BusObject> service(std::in_place, bus.connection(u"ghostty"_s), u"com.mitchellh.ghostty"_s,
                                     u"/com/mitchellh/ghostty"_s);
    tokens.put("permission");
    desktop.openActivating(terminal("ghostty"));
    ASSERT_TRUE(waitUntil([&] { return !service->calls.empty(); }));
    EXPECT_EQ(service->calls[0].member(), u"Activate"_s);
    EXPECT_EQ(qdbus_cast<QVariantMap>(service->calls[0].arguments().value(0))[u"activation-token"_s],
              u"permission"_s);

    // Nobody answers any more, so the command line is used. A second token proves that this is its launch.
    service.reset();
    tokens.put("second");
    desktop.openActivating(terminal("ghostty"));
    EXPECT_EQ(programs.report("ghostty"), "token=second startup=second\n" + homeLine + "x\n");
}

TEST_F(LinuxWorkspaceTest, AsksTheFileManagerForFoldersOnly)
{
    const BusObject manager(bus.connection(u"manager"_s), u"org.freedesktop.FileManager1"_s,
                            u"/org/freedesktop/FileManager1"_s);
    programs.add("gio");
    const std::filesystem::path odd = folder.path() / "50% a-b_c.d~e/\xFF\x01\n\\ü #?&;='\"+:@!";
    std::filesystem::create_directories(odd);
    const auto file = folder.write("file.desktop", "[Desktop Entry]\nType=Application\nExec=false\n");
    LinuxWorkspace desktop = workspace();
    SessionFocus focus(desktop);
    programs.add(
        "stat",
        "case $5 in */hanging) echo $$ >\"$0.id\"; exec sleep 600;; esac\nexec /usr/bin/stat \"$@\"\n");
    focus.focusSession(std::nullopt, folder.path() / "hanging"); // like on a server that does not answer
    focus.focusSession(std::nullopt, folder.path() / "none");
    tokens.put("permission");
    focus.focusSession(std::nullopt, odd);
    ASSERT_TRUE(waitUntil([&] { return manager.calls.size() == 1; }));
    focus.focusSession(std::nullopt, file);
    ASSERT_TRUE(waitUntil([&] { return manager.calls.size() == 2; }));
    const QString base = QString::fromStdString(uri);
    const QString oddUri =
        base + u"/50%25%20a-b_c.d~e/%FF%01%0A%5C%C3%BC%20%23%3F%26%3B%3D%27%22%2B%3A%40%21"_s;
    EXPECT_EQ(manager.calls[0].member(), u"ShowFolders"_s);
    EXPECT_EQ(manager.calls[0].arguments(), (QVariantList{QStringList(oddUri), u"permission"_s}));
    EXPECT_EQ(manager.calls[1].member(), u"ShowItems"_s);
    EXPECT_EQ(manager.calls[1].arguments(), (QVariantList{QStringList(base + u"/file.desktop"_s), u""_s}));
    EXPECT_FALSE(programs.hasRun("gio"));
    const int asking = std::stoi(programs.read("stat.id"));
    EXPECT_TRUE(waitUntil([&] { return ::kill(asking, 0) != 0; })) << "the hanging process is not ended";
}

TEST_F(LinuxWorkspaceTest, WithoutAFileManagerTheUsersChoiceOpensTheFolder)
{
    programs.add("gio");
    std::filesystem::create_directory(folder.path() / "a b");
    LinuxWorkspace desktop = workspace();
    tokens.put("permission");
    EXPECT_TRUE(desktop.openFolder(folder.path() / "a b"));
    EXPECT_EQ(programs.report("gio"),
              "token=permission startup=permission\n" + homeLine + "open\n" + uri + "/a%20b\n");
    desktop.reveal(folder.write("a b/file", ""));
    EXPECT_EQ(programs.report("gio"), "token= startup=\n" + homeLine + "open\n" + uri + "/a%20b\n");
}

/// With a real window manager and real windows.
class LinuxWorkspaceOnScreenTest : public LinuxWorkspaceTest {
protected:
    LinuxWorkspaceOnScreenTest() : LinuxWorkspaceTest({"dbus-daemon", "Xvfb", "openbox"}) {}
    ~LinuxWorkspaceOnScreenTest() override
    {
        for (const ChildProcess& window : windows)
            window.raise(SIGKILL); // asked to end, a terminal takes seconds
    }

    /// Opens a window, which the window manager puts in front, and returns its number.
    std::string open(const char* windowClass, const char* title)
    {
        windows.emplace_back(
            std::vector<std::string>{"xterm", "-class", windowClass, "-T", title, "-e", "sleep", "600"});
        EXPECT_TRUE(comesForward(title)) << title;
        return xdotool({"getactivewindow"});
    }
    /// What it prints, without the line's end.
    static std::string xdotool(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), "xdotool");
        const std::string output = run(std::move(arguments)).output;
        return output.substr(0, output.find('\n'));
    }
    static bool comesForward(const std::string& title)
    {
        return waitUntil([&] { return xdotool({"getactivewindow", "getwindowname"}).contains(title); });
    }
    bool activate(std::string_view first, std::string_view second = {})
    {
        TerminalApplication application = terminal("kitty");
        application.windowClasses = {first, second};
        return workspace(std::getenv("DISPLAY")).activateRunning(application);
    }

    std::deque<ChildProcess> windows;
};

TEST_F(LinuxWorkspaceOnScreenTest, TheMostRecentlyUsedWindowComesForwardInsteadOfAnotherTerminal)
{
    EXPECT_FALSE(activate("kitty")) << "no window";
    const std::string first = open("kitty", "first");
    open("Kitty", "second");
    open("Other", "other");
    EXPECT_FALSE(activate("kitt"));
    EXPECT_TRUE(activate("KITTY"));
    EXPECT_TRUE(comesForward("second"));
    xdotool({"windowactivate", first});
    ASSERT_TRUE(comesForward("first"));
    EXPECT_TRUE(activate("none", "other"));
    EXPECT_TRUE(comesForward("other"));

    xdotool({"set_desktop_for_window", first, "2"});
    ASSERT_TRUE(waitUntil([&] { return xdotool({"get_desktop_for_window", first}) == "2"; }));
    install("kitty", "Exec=" + programs.add("kitty") + "\n");
    tokens.put("permission");
    workspace(std::getenv("DISPLAY")).openActivating(terminal("kitty"));
    EXPECT_TRUE(comesForward("first"));
    EXPECT_EQ(xdotool({"get_desktop"}), "2");
    EXPECT_FALSE(programs.hasRun("kitty"));
    EXPECT_EQ(tokens.take(), "") << "it is spent with the click";
}

}
}
