// SPDX-License-Identifier: MIT
#include "ui/tray_icon.h"

#include "ui/look/symbol.h"
#include "ui/look/words.h"

#include <QAction>
#include <QRect>

#include <utility>

namespace chimewell {

TrayIcon::TrayIcon()
{
    menu_.setToolTipsVisible(true);
    connect(&icon_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::MiddleClick)
            handlers_.clicked(place());
    });
    icon_.setContextMenu(&menu_);
}

void TrayIcon::setHandlers(Handlers handlers)
{
    handlers_ = std::move(handlers);
}

std::optional<ScreenArea> TrayIcon::place() const
{
    const QRect place = icon_.geometry();
    if (place.isEmpty()) return std::nullopt;
    return ScreenArea{.x = static_cast<double>(place.x()),
                      .y = static_cast<double>(place.y()),
                      .width = static_cast<double>(place.width()),
                      .height = static_cast<double>(place.height())};
}

void TrayIcon::show(const StatusIconState& state)
{
    menu_.clear();
    for (const IconMenuEntry& entry : state.menu) {
        if (entry.beginsGroup) menu_.addSeparator();
        QAction* const action = menu_.addAction(
            qString(entry.label), this, [this, command = entry.command] { handlers_.chosen(command); });
        action->setToolTip(qString(entry.tooltip));
        action->setCheckable(entry.isChecked.has_value());
        action->setChecked(entry.isChecked.value_or(false));
    }
    icon_.setIcon(state.isArmed ? themedIcon(QStringLiteral("chimewell-armed-symbolic"), "bell.badge")
                                : themedIcon(QStringLiteral("chimewell-symbolic"), "bell"));
    icon_.setToolTip(qString(state.label));
    icon_.show();
}

}
