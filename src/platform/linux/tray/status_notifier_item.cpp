// SPDX-License-Identifier: MIT
#include "platform/linux/tray/status_notifier_item.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QGuiApplication>
#include <QRect>
#include <QScreen>

#include <optional>
#include <utility>

namespace chimewell {

namespace {

const QString itemPath = QStringLiteral("/StatusNotifierItem");
const QString menuPath = QStringLiteral("/StatusNotifierItem/Menu");
const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");

/// `x` and `y` in the pixels of the whole desktop, which Qt counts in points on each screen.
std::optional<ScreenArea> clickedPlace(int x, int y)
{
    if (x == 0 && y == 0) return std::nullopt;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QPoint corner = screen->geometry().topLeft();
        const QRect pixels(corner, screen->geometry().size() * screen->devicePixelRatio());
        if (!pixels.contains(x, y)) continue;
        return ScreenArea{.x = corner.x() + (x - corner.x()) / screen->devicePixelRatio(),
                          .y = corner.y() + (y - corner.y()) / screen->devicePixelRatio(),
                          .width = 1,
                          .height = 1};
    }
    return std::nullopt;
}

}

QDBusArgument& operator<<(QDBusArgument& out, const NotifierPicture& picture)
{
    out.beginStructure();
    out << picture.width << picture.height << picture.pixels;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, NotifierPicture& picture)
{
    in.beginStructure();
    in >> picture.width >> picture.height >> picture.pixels;
    in.endStructure();
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const NotifierToolTip& toolTip)
{
    out.beginStructure();
    out << toolTip.icon << toolTip.pictures << toolTip.title << toolTip.text;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, NotifierToolTip& toolTip)
{
    in.beginStructure();
    in >> toolTip.icon >> toolTip.pictures >> toolTip.title >> toolTip.text;
    in.endStructure();
    return in;
}

StatusNotifierItem::StatusNotifierItem(QDBusConnection bus) : bus_(std::move(bus))
{
    qDBusRegisterMetaType<NotifierPicture>();
    qDBusRegisterMetaType<QList<NotifierPicture>>();
    qDBusRegisterMetaType<NotifierToolTip>();
    menu_.onChosen = [this](IconCommand command) { handlers_.chosen(command); };
}

StatusNotifierItem::~StatusNotifierItem()
{
    if (!isThere_) return;
    bus_.unregisterObject(menuPath);
    bus_.unregisterObject(itemPath);
}

QDBusObjectPath StatusNotifierItem::menu()
{
    return QDBusObjectPath(menuPath);
}

void StatusNotifierItem::setHandlers(Handlers handlers)
{
    handlers_ = std::move(handlers);
}

void StatusNotifierItem::show(const StatusIconState& state)
{
    // Themed, so that the desktop draws it in its own colours.
    iconName_ =
        state.isArmed ? QStringLiteral("chimewell-armed-symbolic") : QStringLiteral("chimewell-symbolic");
    toolTip_.title = QString::fromStdString(state.label);
    menu_.show(state.menu);
    if (!isThere_) {
        enterPanel();
        return;
    }
    Q_EMIT NewIcon();
    Q_EMIT NewTitle();
    Q_EMIT NewToolTip();
}

void StatusNotifierItem::enterPanel()
{
    isThere_ = true;
    const auto exported = QDBusConnection::ExportScriptableContents;
    bus_.registerObject(itemPath, this, exported);
    bus_.registerObject(menuPath, &menu_, exported);
    auto call = QDBusMessage::createMethodCall(watcher, QStringLiteral("/StatusNotifierWatcher"), watcher,
                                               QStringLiteral("RegisterStatusNotifierItem"));
    // The connection's own name. For any other, GNOME's extension also asks who owns it, and drops the icon
    // if that answer comes after the icon's properties (version 46).
    call << bus_.baseService();
    bus_.send(call);
}

void StatusNotifierItem::Activate(int x, int y)
{
    handlers_.clicked(clickedPlace(x, y));
}

void StatusNotifierItem::SecondaryActivate(int x, int y)
{
    handlers_.clicked(clickedPlace(x, y));
}

void StatusNotifierItem::ContextMenu(int, int) {} // the host shows the menu

void StatusNotifierItem::Scroll(int, const QString&) {}

void StatusNotifierItem::ProvideXdgActivationToken(const QString& token)
{
    // Where Qt looks when a window of ours asks to come forward (Qt 6, QWindow::requestActivate).
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

}
