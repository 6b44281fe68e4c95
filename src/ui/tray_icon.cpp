// SPDX-License-Identifier: MIT
#include "ui/tray_icon.h"

#include "presentation/panel_model.h"
#include "ui/look/symbol_icon.h"
#include "values/texts.h"

#include <QCursor>
#include <QString>

#include <string_view>
#include <utility>

namespace chimewell {

TrayIcon::TrayIcon(const InterfaceServices& services, Actions actions)
    : services_(services),
      actions_(std::move(actions))
{
    const Words& words = services_.words;
    menu_.addAction(words(texts::openPanel), this, [this] { actions_.openPanel(place()); });
    menu_.addSeparator();
    muteAll_ = menu_.addAction(words(texts::muteAll));
    muteAll_->setCheckable(true);
    connect(muteAll_, &QAction::triggered, this, [this](bool muted) { services_.actions.setMuted(muted); });
    menu_.addAction(words(texts::playSample), this, [this] { services_.actions.playSample(); });
    menu_.addAction(words(texts::openSettings), this, [this] { actions_.openSettings(); });
    menu_.addSeparator();
    menu_.addAction(words(texts::quit), this, [this] { services_.quit(); })
        ->setToolTip(words(texts::quitTooltip));
    menu_.setToolTipsVisible(true);

    connect(&icon_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::MiddleClick)
            actions_.openPanel(place());
    });
    icon_.setContextMenu(&menu_);
    subscription_ = services_.store.onChange([this] { show(); });
    show();
    icon_.show();
}

QRect TrayIcon::place() const
{
    // Hosts that draw the icon themselves do not tell where it is; the pointer that clicked it is there.
    const QRect known = icon_.geometry();
    return known.isEmpty() ? QRect(QCursor::pos(), QSize(1, 1)) : known;
}

void TrayIcon::show()
{
    const AppSettings& settings = services_.store.settings();
    muteAll_->setChecked(settings.globalMuted);
    const std::string_view symbol = menuBarIcon(settings);
    // By name, so that the desktop draws it in its own colours.
    icon_.setIcon(themedIcon(symbol == "bell.badge" ? QStringLiteral("chimewell-armed-symbolic")
                                                    : QStringLiteral("chimewell-symbolic"),
                             symbol));
    icon_.setToolTip(
        services_.words({texts::titleAndDetail, {texts::panelName, panelHeader(settings).status}}));
}

}
