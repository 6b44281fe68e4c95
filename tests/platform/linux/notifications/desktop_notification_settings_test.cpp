// SPDX-License-Identifier: MIT
// The settings of real desktops, written by their own tools where they are installed.
#include "platform/linux/notifications/desktop_notification_settings.h"

#include "harness/child_process.h"
#include "harness/private_bus.h"
#include "harness/wait_until.h"
#include "support/environment_variable.h"
#include "support/program_folder.h"
#include "support/temporary_folder.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace Qt::StringLiterals;

class DesktopNotificationSettingsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    }

    void startOn(const char* desktop)
    {
        desktop_.emplace("XDG_CURRENT_DESKTOP", desktop);
        settings = std::make_unique<DesktopNotificationSettings>(bus.connection(u"settings"_s));
        QObject::connect(settings.get(), &DesktopNotificationSettings::changed, settings.get(),
                         [this] { ++changes; });
    }

    bool isOff()
    {
        std::optional<bool> answer;
        settings->readOff([&](bool off) { answer = off; });
        EXPECT_FALSE(answer.has_value()) << "answers come from the event loop";
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(false);
    }

    TemporaryFolder folder;
    const EnvironmentVariable configuration{"XDG_CONFIG_HOME", folder.path()};
    PrivateBus bus;
    std::unique_ptr<DesktopNotificationSettings> settings;
    int changes = 0;

private:
    std::optional<EnvironmentVariable> desktop_;
};

TEST_F(DesktopNotificationSettingsTest, ReadsGnomes)
{
    if (!bus.offerInstalled("ca.desrt.dconf")) GTEST_SKIP() << "dconf-service is not installed";
    startOn("ubuntu:GNOME");
    EXPECT_FALSE(isOff()) << "before the first banner GNOME knows nothing of us";

    const std::string schema = "org.gnome.desktop.notifications.application:"
                               "/org/gnome/desktop/notifications/application/app-chimewell-chimewell/";
    for (const char* const key : {"enable", "show-banners"})
        for (const bool off : {true, false}) {
            SCOPED_TRACE(key);
            changes = 0;
            if (run({"gsettings", "set", schema, key, off ? "false" : "true"}).status != 0)
                GTEST_SKIP() << "GNOME's settings schemas are not installed";
            EXPECT_TRUE(waitUntil([&] { return changes == 1; }));
            EXPECT_EQ(isOff(), off);
        }
}

TEST_F(DesktopNotificationSettingsTest, ReadsXfces)
{
    startOn("XFCE");
    EXPECT_FALSE(isOff()) << "no settings service at all";
    if (!bus.offerInstalled("org.xfce.Xfconf")) GTEST_SKIP() << "xfconfd is not installed";
    EXPECT_FALSE(isOff()) << "nothing was ever muted";
    const std::string us = "app.chimewell.Chimewell";
    const struct {
        std::vector<std::string> value;
        bool off;
    } cases[] = {
        {{"-a", "-t", "string", "-s", "Other", "-t", "string", "-s", us}, true},
        {{"-a", "-t", "string", "-s", "Other", "-t", "int", "-s", "1"}, false},
        {{"-t", "string", "-s", us}, false},
    };
    for (const auto& each : cases) {
        changes = 0;
        std::vector<std::string> command{
            "xfconf-query", "-c", "xfce4-notifyd", "-p", "/applications/muted_applications", "-n"};
        command.insert(command.end(), each.value.begin(), each.value.end());
        if (run(command).status != 0) GTEST_SKIP() << "xfconf-query is not installed";
        EXPECT_TRUE(waitUntil([&] { return changes > 0; }));
        EXPECT_EQ(isOff(), each.off) << each.value.back();
    }
}

TEST_F(DesktopNotificationSettingsTest, ReadsPlasmas)
{
    startOn("KDE");
    EXPECT_FALSE(isOff()) << "no file";
    const struct {
        const char* file;
        bool off;
    } cases[] = {
        {"[Applications][app.chimewell.Chimewell]\nSeen=true\nShowPopups=false\n", true},
        {"[Applications][app.chimewell.Chimewell]\nShowPopups=true\n", false},
        {"[Applications][org.kde.other]\nShowPopups=false\n[Applications][app.chimewell.Chimewell]\n", false},
        {"[Applications][app.chimewell.Chimewell]\nSeen=true\n[DoNotDisturb]\nShowPopups=false\n", false},
    };
    for (const auto& each : cases) {
        folder.write("plasmanotifyrc", each.file);
        EXPECT_EQ(isOff(), each.off) << each.file;
    }
    startOn("sway");
    folder.write("plasmanotifyrc", cases[0].file);
    EXPECT_FALSE(isOff()) << "another desktop";
}

TEST_F(DesktopNotificationSettingsTest, OpensThePageOfTheRunningDesktop)
{
    ProgramFolder programs;
    const struct {
        const char *desktop, *program, *arguments;
    } cases[] = {
        {"pop:GNOME", "gnome-control-center", "\nnotifications\n"},
        {"KDE", "systemsettings", "\nkcm_notifications\n"},
        {"XFCE", "xfce4-notifyd-config", "\n"},
    };
    for (const auto& each : cases) {
        programs.add(each.program);
        const EnvironmentVariable desktop("XDG_CURRENT_DESKTOP", each.desktop);
        DesktopNotificationSettings::open();
        EXPECT_TRUE(programs.report(each.program).ends_with(each.arguments)) << each.desktop;
    }
}

}
}
