// SPDX-License-Identifier: MIT
#include "harness/child_process.h"
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/workspace/x11_windows.h"

#include <QStandardPaths>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

class X11WindowsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!display.unavailable().empty()) GTEST_SKIP() << display.unavailable();
        for (const char* tool : {"xterm", "xdotool"})
            if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
                GTEST_SKIP() << tool << " is not installed";
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
    bool comesForward(const char* title)
    {
        return waitUntil([&] { return xdotool({"getactivewindow", "getwindowname"}) == title; });
    }
    bool activate(std::string_view first, std::string_view second = {})
    {
        return activateNewestWindow(std::getenv("DISPLAY"), std::array{first, second});
    }

    PrivateSession display{{"Xvfb", "openbox"}};
    std::deque<ChildProcess> windows;
};

TEST_F(X11WindowsTest, TheMostRecentlyUsedOfAClassComesForward)
{
    const std::string first = open("kitty", "first");
    open("Kitty", "second");
    open("Other", "other");
    EXPECT_TRUE(activate("KITTY"));
    EXPECT_TRUE(comesForward("second"));

    xdotool({"windowactivate", first});
    ASSERT_TRUE(comesForward("first"));
    EXPECT_TRUE(activate("none", "other"));
    EXPECT_TRUE(comesForward("other"));
    EXPECT_TRUE(activate("kitty"));
    EXPECT_TRUE(comesForward("first"));
}

TEST_F(X11WindowsTest, AMinimisedWindowComesBack)
{
    const std::string window = open("kitty", "terminal");
    open("Other", "other");
    xdotool({"windowminimize", "--sync", window});
    EXPECT_TRUE(activate("kitty"));
    EXPECT_TRUE(comesForward("terminal"));
}

TEST_F(X11WindowsTest, AWindowOnAnotherDesktopIsFollowedThere)
{
    const std::string window = open("kitty", "terminal");
    open("Other", "other");
    xdotool({"set_desktop_for_window", window, "2"});
    ASSERT_TRUE(waitUntil([&] { return xdotool({"get_desktop_for_window", window}) == "2"; }));
    EXPECT_TRUE(activate("kitty"));
    EXPECT_TRUE(comesForward("terminal"));
    EXPECT_EQ(xdotool({"get_desktop"}), "2");
}

TEST_F(X11WindowsTest, WithoutSuchAWindowNothingHappens)
{
    open("kitty", "terminal");
    open("Other", "other");
    EXPECT_FALSE(activate("kitt"));
    EXPECT_FALSE(activate("kitty2"));
    EXPECT_FALSE(activate(""));
    EXPECT_FALSE(activateNewestWindow(":none", std::array{std::string_view("kitty")}));
    EXPECT_TRUE(comesForward("other"));
}

TEST(X11WindowsWithoutAManager, NothingIsListed)
{
    const PrivateSession display({"Xvfb"});
    if (!display.unavailable().empty()) GTEST_SKIP() << display.unavailable();
    EXPECT_FALSE(activateNewestWindow(std::getenv("DISPLAY"), std::array{std::string_view("kitty")}));
}

}
}
