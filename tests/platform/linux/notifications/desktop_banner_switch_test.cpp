// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/desktop_notification_settings.h"

#include "harness/child_process.h"
#include "harness/private_bus.h"
#include "harness/wait_until.h"
#include "support/environment_variable.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace Qt::StringLiterals;

class AnsweringObject : public QDBusVirtualObject {
public:
    QVariant answer;
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override
    {
        return connection.send(call.createReply(answer));
    }
};

class DesktopBannerSwitchTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    }

    void startOn(const char* desktop)
    {
        desktop_ = std::make_unique<EnvironmentVariable>("XDG_CURRENT_DESKTOP", desktop);
        banners = std::make_unique<DesktopNotificationSettings>(bus.connection(u"switch"_s));
        QObject::connect(banners.get(), &DesktopNotificationSettings::changed, banners.get(),
                         [this] { ++changes; });
    }

    bool isOff()
    {
        std::optional<bool> answer;
        banners->readOff([&](bool off) { answer = off; });
        EXPECT_FALSE(answer.has_value()) << "answers come from the event loop";
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(false);
    }

    PrivateBus bus;
    std::unique_ptr<DesktopNotificationSettings> banners;
    int changes = 0;

private:
    std::unique_ptr<EnvironmentVariable> desktop_;
};

TEST_F(DesktopBannerSwitchTest, ReadsGnomes)
{
    if (!bus.offerInstalled("ca.desrt.dconf")) GTEST_SKIP() << "dconf-service is not installed";
    startOn("ubuntu:GNOME");
    EXPECT_FALSE(isOff()) << "before the first banner GNOME knows nothing of us";

    const std::string schema = "org.gnome.desktop.notifications.application:"
                               "/org/gnome/desktop/notifications/application/app-chimewell-chimewell/";
    for (const char* const key : {"enable", "show-banners"}) {
        SCOPED_TRACE(key);
        if (run({"gsettings", "set", schema, key, "false"}).status != 0)
            GTEST_SKIP() << "GNOME's settings schemas are not installed";
        EXPECT_TRUE(waitUntil([&] { return changes == 1; }));
        EXPECT_TRUE(isOff());
        run({"gsettings", "set", schema, key, "true"});
        EXPECT_TRUE(waitUntil([&] { return changes == 2; }));
        EXPECT_FALSE(isOff());
        changes = 0;
    }
}

TEST_F(DesktopBannerSwitchTest, ReadsXfces)
{
    startOn("XFCE");
    EXPECT_FALSE(isOff()) << "no settings service at all";
    if (!bus.offerInstalled("org.xfce.Xfconf")) GTEST_SKIP() << "xfconfd is not installed";
    EXPECT_FALSE(isOff()) << "nobody was ever muted";
    const auto mute = [](const std::vector<std::string>& names) {
        std::vector<std::string> command{
            "xfconf-query", "-c", "xfce4-notifyd", "-p", "/applications/muted_applications", "-n", "-a"};
        for (const std::string& name : names)
            command.insert(command.end(), {"-t", "string", "-s", name});
        return run(command).status;
    };
    if (mute({"Other", "app.chimewell.Chimewell"}) != 0) GTEST_SKIP() << "xfconf-query is not installed";
    EXPECT_TRUE(waitUntil([&] { return changes == 1; }));
    EXPECT_TRUE(isOff());
    mute({"Other"});
    EXPECT_TRUE(waitUntil([&] { return changes == 2; }));
    EXPECT_FALSE(isOff());
}

TEST_F(DesktopBannerSwitchTest, SurvivesAnswersOfOtherTypes)
{
    AnsweringObject settings;
    QDBusConnection service = bus.connection(u"settings"_s);
    service.registerVirtualObject(u"/org/xfce/Xfconf"_s, &settings);
    service.registerService(u"org.xfce.Xfconf"_s);
    startOn("XFCE");
    for (const QVariant& value : {QVariant::fromValue(QList<int>{1}), QVariant(QVariantMap{{u"a"_s, 1}}),
                                  QVariant(QStringList(u"app.chimewell.Chimewell"_s))}) {
        settings.answer = QVariant::fromValue(QDBusVariant(value));
        EXPECT_FALSE(isOff()) << value.typeName();
    }
}

TEST_F(DesktopBannerSwitchTest, ReadsPlasmas)
{
    startOn("KDE");
    EXPECT_FALSE(isOff());
    struct Case {
        QByteArray file;
        bool off;
    };
    const Case cases[] = {
        {"[Applications][app.chimewell.Chimewell]\nSeen=true\nShowPopups=false\n", true},
        {"[Applications][app.chimewell.Chimewell]\nShowPopups=true\n", false},
        {"[Applications][org.kde.other]\nShowPopups=false\n[Applications][app.chimewell.Chimewell]\nSeen="
         "true\n",
         false},
        {"[Applications][app.chimewell.Chimewell]\nSeen=true\n\n[DoNotDisturb]\nShowPopups=false\n", false},
    };
    QDir::home().mkpath(u".config"_s);
    QFile file(QDir::homePath() + u"/.config/plasmanotifyrc"_s);
    for (const Case& c : cases) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(c.file);
        file.close();
        EXPECT_EQ(isOff(), c.off) << c.file.data();
    }
}

TEST_F(DesktopBannerSwitchTest, IsOnWhereTheDesktopHasNone)
{
    startOn("sway");
    EXPECT_FALSE(isOff());
}

}
}
