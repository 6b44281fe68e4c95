// SPDX-License-Identifier: MIT
#include "ui/tray_icon.h"

#include <QIcon>
#include <QString>

namespace chimewell {

TrayIcon::TrayIcon(SettingsStore& store, Actions actions)
    : store_(store),
      muteAll_(menu_.addAction(QStringLiteral("Mute all")))
{
    muteAll_->setCheckable(true);
    QObject::connect(muteAll_, &QAction::triggered, &menu_, [this](bool muted) {
        store_.update([&](AppSettings& settings) { settings.globalMuted = muted; });
    });
    menu_.addAction(QStringLiteral("Play a sample alert"), &menu_, std::move(actions.playSample));
    menu_.addSeparator();
    menu_.addAction(QStringLiteral("Quit"), &menu_, std::move(actions.quit))
        ->setToolTip(QStringLiteral("Quit — Chimewell stays closed until you open it again"));
    menu_.setToolTipsVisible(true);

    icon_.setContextMenu(&menu_);
    icon_.setToolTip(QStringLiteral("Chimewell"));
    subscription_ = store_.onChange([this] { show(); });
    show();
    icon_.show();
}

void TrayIcon::show()
{
    const AppSettings& settings = store_.settings();
    muteAll_->setChecked(settings.globalMuted);
    const bool armed = !settings.globalMuted && settings.anyProviderInstalled();
    // By name, so that the panel draws it in its own colours.
    icon_.setIcon(QIcon::fromTheme(armed ? QStringLiteral("chimewell-armed-symbolic")
                                         : QStringLiteral("chimewell-symbolic")));
}

}
