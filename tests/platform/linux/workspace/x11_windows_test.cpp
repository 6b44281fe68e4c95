// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/x11_windows.h"
#include "support/child_process.h"
#include "support/private_display.h"
#include "support/wait_until.h"

#include <QStandardPaths>
#include <QStringList>

#include <gtest/gtest.h>

#include <array>
#include <deque>

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
    QString open(const char* windowClass, const char* title)
    {
        windows.emplace_back(QStringLiteral("xterm"),
                             QStringList{QStringLiteral("-class"), QString::fromLatin1(windowClass),
                                         QStringLiteral("-T"), QString::fromLatin1(title),
                                         QStringLiteral("-e"), QStringLiteral("sleep"),
                                         QStringLiteral("600")},
                             display.environment());
        EXPECT_TRUE(comesForward(title)) << title;
        return xdotool({QStringLiteral("getactivewindow")});
    }
    QString xdotool(const QStringList& arguments)
    {
        return display.output(QStringLiteral("xdotool"), arguments).trimmed();
    }
    bool comesForward(const char* title)
    {
        return waitUntil([&] {
            return xdotool({QStringLiteral("getactivewindow"), QStringLiteral("getwindowname")}) ==
                   QString::fromLatin1(title);
        });
    }
    bool activate(std::string_view first, std::string_view second = {})
    {
        return activateNewestWindow(display.name().toStdString(), std::array{first, second});
    }

    PrivateDisplay display{PrivateDisplay::WindowManager::openbox};
    std::deque<ChildProcess> windows;
};

TEST_F(X11WindowsTest, TheMostRecentlyUsedOfAClassComesForward)
{
    const QString first = open("kitty", "first");
    open("Kitty", "second");
    open("Other", "other");
    EXPECT_TRUE(activate("KITTY"));
    EXPECT_TRUE(comesForward("second"));

    xdotool({QStringLiteral("windowactivate"), first});
    ASSERT_TRUE(comesForward("first"));
    EXPECT_TRUE(activate("none", "other"));
    EXPECT_TRUE(comesForward("other"));
    EXPECT_TRUE(activate("kitty"));
    EXPECT_TRUE(comesForward("first"));
}

TEST_F(X11WindowsTest, AMinimisedWindowComesBack)
{
    const QString window = open("kitty", "terminal");
    open("Other", "other");
    xdotool({QStringLiteral("windowminimize"), QStringLiteral("--sync"), window});
    EXPECT_TRUE(activate("kitty"));
    EXPECT_TRUE(comesForward("terminal"));
}

TEST_F(X11WindowsTest, AWindowOnAnotherDesktopIsFollowedThere)
{
    const QString window = open("kitty", "terminal");
    open("Other", "other");
    xdotool({QStringLiteral("set_desktop_for_window"), window, QStringLiteral("2")});
    ASSERT_TRUE(waitUntil(
        [&] { return xdotool({QStringLiteral("get_desktop_for_window"), window}) == QStringLiteral("2"); }));
    EXPECT_TRUE(activate("kitty"));
    EXPECT_TRUE(comesForward("terminal"));
    EXPECT_EQ(xdotool({QStringLiteral("get_desktop")}), QStringLiteral("2"));
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
    const PrivateDisplay display(PrivateDisplay::WindowManager::none);
    if (!display.unavailable().empty()) GTEST_SKIP() << display.unavailable();
    EXPECT_FALSE(activateNewestWindow(display.name().toStdString(), std::array{std::string_view("kitty")}));
}

}
}
