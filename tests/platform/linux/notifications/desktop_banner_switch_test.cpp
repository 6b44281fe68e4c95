// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/desktop_banner_switch.h"

#include "support/environment_variable.h"
#include "support/installed_service.h"
#include "support/private_bus.h"
#include "support/wait_until.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <memory>
#include <optional>

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
        if (!bus.isRunning()) GTEST_SKIP() << "dbus-daemon is not installed";
    }

    void startOn(const char* desktop)
    {
        desktop_ = std::make_unique<EnvironmentVariable>("XDG_CURRENT_DESKTOP", desktop);
        banners = std::make_unique<DesktopBannerSwitch>(bus.connection(u"switch"_s));
        QObject::connect(banners.get(), &DesktopBannerSwitch::changed, banners.get(), [this] { ++changes; });
    }

    bool isOff()
    {
        std::optional<bool> answer;
        banners->read([&](bool off) { answer = off; });
        EXPECT_FALSE(answer.has_value()) << "answers come from the event loop";
        EXPECT_TRUE(waitUntil([&] { return answer.has_value(); }));
        return answer.value_or(false);
    }

    /// A command of the desktop's, on the test's bus; its exit status.
    int run(const QString& program, const QStringList& arguments) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        process.waitForFinished();
        return process.error() == QProcess::UnknownError ? process.exitCode() : -1;
    }

    PrivateBus bus;
    std::unique_ptr<DesktopBannerSwitch> banners;
    int changes = 0;

private:
    std::unique_ptr<EnvironmentVariable> desktop_;
};

TEST_F(DesktopBannerSwitchTest, ReadsGnomes)
{
    const QString service = installedService(u"ca.desrt.dconf.service"_s);
    if (service.isEmpty()) GTEST_SKIP() << "dconf-service is not installed";
    bus.offer(u"ca.desrt.dconf"_s, service);
    startOn("ubuntu:GNOME");
    EXPECT_FALSE(isOff()) << "before the first banner GNOME knows nothing of us";

    const QString schema = u"org.gnome.desktop.notifications.application:"
                           "/org/gnome/desktop/notifications/application/app-chimewell-chimewell/"_s;
    for (const QString& key : {u"enable"_s, u"show-banners"_s}) {
        SCOPED_TRACE(key.toStdString());
        if (run(u"gsettings"_s, {u"set"_s, schema, key, u"false"_s}) != 0)
            GTEST_SKIP() << "GNOME's settings schemas are not installed";
        EXPECT_TRUE(waitUntil([&] { return changes == 1; }));
        EXPECT_TRUE(isOff());
        run(u"gsettings"_s, {u"set"_s, schema, key, u"true"_s});
        EXPECT_TRUE(waitUntil([&] { return changes == 2; }));
        EXPECT_FALSE(isOff());
        changes = 0;
    }
}

TEST_F(DesktopBannerSwitchTest, ReadsXfces)
{
    const QString service = installedService(u"org.xfce.Xfconf.service"_s);
    if (service.isEmpty()) GTEST_SKIP() << "xfconfd is not installed";
    startOn("XFCE");
    EXPECT_FALSE(isOff()) << "no settings service at all";
    bus.offer(u"org.xfce.Xfconf"_s, service);
    EXPECT_FALSE(isOff()) << "nobody was ever muted";
    const auto mute = [&](const QStringList& names) {
        QStringList arguments{
            u"-c"_s, u"xfce4-notifyd"_s, u"-p"_s, u"/applications/muted_applications"_s, u"-n"_s, u"-a"_s};
        for (const QString& name : names)
            arguments << u"-t"_s << u"string"_s << u"-s"_s << name;
        return run(u"xfconf-query"_s, arguments);
    };
    if (mute({u"Other"_s, u"app.chimewell.Chimewell"_s}) != 0)
        GTEST_SKIP() << "xfconf-query is not installed";
    EXPECT_TRUE(waitUntil([&] { return changes == 1; }));
    EXPECT_TRUE(isOff());
    mute({u"Other"_s});
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
