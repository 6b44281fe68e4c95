// SPDX-License-Identifier: MIT
#include "ui/tray_icon.h"

#include "ui/look/symbol.h"
#include "ui/look/words.h"
#include "values/texts.h"

#include <QAction>
#include <QCursor>
#include <QRect>

#include <utility>

namespace chimewell {

TrayIcon::TrayIcon(Services& services, const std::function<void()>& openSettings)
{
    const Words words(services.ports.translator);
    UserActions& actions = services.actions;
    menu_.addAction(words(texts::openPanel), this, [this] { clicked_(place()); });
    menu_.addSeparator();
    muteAll_ = menu_.addAction(words(texts::muteAll));
    muteAll_->setCheckable(true);
    connect(muteAll_, &QAction::triggered, this, [&actions](bool muted) { actions.setMuted(muted); });
    menu_.addAction(words(texts::playSample), this, [&actions] { actions.playSample(); });
    menu_.addAction(words(texts::openSettings), this, openSettings);
    menu_.addSeparator();
    menu_.addAction(words(texts::quit), this, [&actions] { actions.quit(); })
        ->setToolTip(words(texts::quitTooltip));
    menu_.setToolTipsVisible(true);

    connect(&icon_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::MiddleClick) clicked_(place());
    });
    icon_.setContextMenu(&menu_);
}

void TrayIcon::setClickHandler(std::function<void(const ScreenArea& icon)> clicked)
{
    clicked_ = std::move(clicked);
}

ScreenArea TrayIcon::place() const
{
    // Hosts that draw the icon themselves don't tell where it is. The pointer that clicked it is there.
    const QRect known = icon_.geometry();
    const QRect place = known.isEmpty() ? QRect(QCursor::pos(), QSize(1, 1)) : known;
    return {.x = static_cast<double>(place.x()),
            .y = static_cast<double>(place.y()),
            .width = static_cast<double>(place.width()),
            .height = static_cast<double>(place.height())};
}

void TrayIcon::show(const StatusIconState& state)
{
    muteAll_->setChecked(state.isMuted);
    // By name, so that the desktop draws it in its own colours.
    icon_.setIcon(state.isArmed ? themedIcon(QStringLiteral("chimewell-armed-symbolic"), "bell.badge")
                                : themedIcon(QStringLiteral("chimewell-symbolic"), "bell"));
    icon_.setToolTip(qString(state.label));
    icon_.show();
}

}
