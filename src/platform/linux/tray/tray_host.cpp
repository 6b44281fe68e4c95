// SPDX-License-Identifier: MIT
#include "platform/linux/tray/tray_host.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "platform/linux/freedesktop/x11.h"

#include <QDBusVariant>
#include <QGuiApplication>
#include <QVariant>

#include <utility>

#include <xcb/xcb.h>

namespace chimewell {

namespace {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

}

TrayHost::TrayHost(QDBusConnection bus, std::function<void(TrayKind)> changed)
    : bus_(std::move(bus)),
      watcher_(watcherName, bus_, QDBusServiceWatcher::WatchForOwnerChange),
      changed_(std::move(changed))
{
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayHost::look);
    for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        bus_.connect(watcherName, watcherPath, watcherName, QString::fromLatin1(signal), this, SLOT(look()));
    if (xcb_connection_t* const x11 = x11Connection()) {
        // System Tray Protocol: a new owner of the selection announces itself to the root window, whose
        // events Qt selects for its own icons.
        managerAtom_ = x11Atom(x11, "MANAGER");
        selectionAtom_ = x11Atom(x11, "_NET_SYSTEM_TRAY_S0");
        qApp->installNativeEventFilter(this);
    }
    look();
}

TrayHost::~TrayHost()
{
    qApp->removeNativeEventFilter(this);
}

void TrayHost::look()
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        watcherName, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << watcherName << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    callAsync(bus_, call, this, [this](const QDBusMessage& reply) {
        tell(reply.type() == QDBusMessage::ReplyMessage &&
             reply.arguments().value(0).value<QDBusVariant>().variant().toBool());
    });
}

bool TrayHost::hasSelectionOwner()
{
    xcb_connection_t* const x11 = x11Connection();
    if (!x11) return false;
    selectionOwner_ = x11SelectionOwner(x11, selectionAtom_);
    if (selectionOwner_ == XCB_WINDOW_NONE) return false;
    // System Tray Protocol: it lets go of the selection by destroying its window. Qt, whose connection this
    // is, selects the same events for its own icons.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x11, selectionOwner_, XCB_CW_EVENT_MASK, &events);
    xcb_flush(x11);
    return true;
}

void TrayHost::tell(bool hasNotifierHost)
{
    const bool hasOwner = hasSelectionOwner();
    const TrayKind kind = hasNotifierHost ? TrayKind::statusNotifier
                          : hasOwner      ? TrayKind::selection
                                          : TrayKind::none;
    if (std::exchange(kind_, kind) != kind) changed_(kind);
}

bool TrayHost::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t") return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const unsigned int type = event->response_type & ~0x80U;
    if (type == XCB_CLIENT_MESSAGE) {
        const auto* announcement = reinterpret_cast<const xcb_client_message_event_t*>(event);
        if (announcement->type == managerAtom_ && announcement->data.data32[1] == selectionAtom_) look();
    } else if (type == XCB_DESTROY_NOTIFY) {
        if (reinterpret_cast<const xcb_destroy_notify_event_t*>(event)->window == selectionOwner_) look();
    }
    return false;
}

}
