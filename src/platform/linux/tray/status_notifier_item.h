// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/tray/dbus_menu.h"
#include "ports/status_icon.h"

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QList>
#include <QObject>
#include <QString>

namespace chimewell {

/// A picture as hosts take it. We name a themed icon instead, but the bus wants the type.
struct NotifierPicture {
    int width = 0;
    int height = 0;
    QByteArray pixels; ///< ARGB32, in network byte order.
};

/// What the host shows while the pointer rests on the icon.
struct NotifierToolTip {
    QString icon;
    QList<NotifierPicture> pictures;
    QString title;
    QString text;
};

QDBusArgument& operator<<(QDBusArgument& out, const NotifierPicture& picture);
const QDBusArgument& operator>>(const QDBusArgument& in, NotifierPicture& picture);
QDBusArgument& operator<<(QDBusArgument& out, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& in, NotifierToolTip& toolTip);

/// The icon on desktops whose panel draws it: the interface `org.kde.StatusNotifierItem` (freedesktop.org,
/// StatusNotifierItem). Not the toolkit's, which hands on neither where the icon was clicked nor the
/// permission to come forward.
class StatusNotifierItem final : public QObject, public StatusIcon {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(chimewell::NotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ isMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
public:
    explicit StatusNotifierItem(QDBusConnection bus);
    ~StatusNotifierItem() override;

    /// The first call puts the icon into the panel.
    void show(const StatusIconState& state) override;
    void setHandlers(Handlers handlers) override;

    static QString category() { return QStringLiteral("ApplicationStatus"); }
    static QString id() { return QStringLiteral("chimewell"); }
    QString title() const { return toolTip_.title; }
    static QString status() { return QStringLiteral("Active"); }
    QString iconName() const { return iconName_; }
    NotifierToolTip toolTip() const { return toolTip_; }
    static bool isMenu() { return false; }
    static QDBusObjectPath menu();

public Q_SLOTS:
    // Names on the bus. NOLINTBEGIN(readability-identifier-naming)
    /// A click, at that place of the screen in pixels; 0, 0 from hosts that don't know it.
    Q_SCRIPTABLE void Activate(int x, int y);
    Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    Q_SCRIPTABLE static void ContextMenu(int x, int y);
    Q_SCRIPTABLE static void Scroll(int delta, const QString& orientation);
    /// Comes before `Activate` on Wayland.
    Q_SCRIPTABLE static void ProvideXdgActivationToken(const QString& token);

Q_SIGNALS:
    Q_SCRIPTABLE void NewIcon();
    Q_SCRIPTABLE void NewTitle();
    Q_SCRIPTABLE void NewToolTip();
    // NOLINTEND(readability-identifier-naming)

private:
    void enterPanel();

    QDBusConnection bus_;
    QString iconName_;
    NotifierToolTip toolTip_;
    DbusMenu menu_;
    Handlers handlers_;
    bool isThere_ = false; ///< In the panel.
};

}

Q_DECLARE_METATYPE(chimewell::NotifierPicture)
Q_DECLARE_METATYPE(chimewell::NotifierToolTip)
