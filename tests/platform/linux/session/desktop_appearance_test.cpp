// SPDX-License-Identifier: MIT
#include "platform/linux/session/desktop_appearance.h"

#include "harness/private_bus.h"
#include "harness/wait_until.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>

#include <gtest/gtest.h>

#include <vector>

namespace chimewell::test {

/// As much of a desktop's portal as tells of light and dark.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    Portal(QDBusConnection connection, unsigned int scheme)
        : connection_(std::move(connection)),
          scheme_(scheme)
    {
        connection_.registerObject(path(), this, QDBusConnection::ExportAllSlots);
        connection_.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    void set(const QString& nameSpace, unsigned int scheme)
    {
        auto change = QDBusMessage::createSignal(path(), QStringLiteral("org.freedesktop.portal.Settings"),
                                                 QStringLiteral("SettingChanged"));
        change << nameSpace << QStringLiteral("color-scheme") << QVariant::fromValue(QDBusVariant(scheme));
        connection_.send(change);
    }

public Q_SLOTS:
    QDBusVariant Read(const QString&, const QString&) const
    {
        return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme_)));
    }

private:
    static QString path() { return QStringLiteral("/org/freedesktop/portal/desktop"); }

    QDBusConnection connection_;
    unsigned int scheme_;
};

TEST(DesktopAppearance, TellsAtTheStartAndWhenItChanges)
{
    PrivateBus bus;
    if (!bus.unavailable().empty()) GTEST_SKIP() << bus.unavailable();
    Portal portal(bus.connection(QStringLiteral("desktop")), 1);
    std::vector<std::optional<bool>> told;
    const DesktopAppearance appearance(bus.connection(QStringLiteral("application")),
                                       [&](std::optional<bool> isDark) { told.push_back(isDark); });
    ASSERT_TRUE(waitUntil([&] { return told.size() == 1; }));
    portal.set(QStringLiteral("org.gnome.desktop.interface"), 2); // somebody else's setting of the same name
    portal.set(QStringLiteral("org.freedesktop.appearance"), 2);
    portal.set(QStringLiteral("org.freedesktop.appearance"), 0);
    ASSERT_TRUE(waitUntil([&] { return told.size() == 3; }));
    EXPECT_EQ(told, (std::vector<std::optional<bool>>{true, false, std::nullopt}));
}

}

#include "desktop_appearance_test.moc"
