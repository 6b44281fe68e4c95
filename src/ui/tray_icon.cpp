// SPDX-License-Identifier: MIT
#include "ui/tray_icon.h"

#include "values/provider.h"

#include <QIcon>
#include <QString>

#include <algorithm>

namespace chimewell {

bool isArmed(const AppSettings& settings)
{
    const auto isInstalled = [&](std::string_view provider) {
        const auto state = std::ranges::find(settings.providers, provider, &ProviderInstallState::providerId);
        return state != settings.providers.end() && state->installed;
    };
    return !settings.globalMuted && std::ranges::any_of(knownProviders, isInstalled);
}

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
    muteAll_->setChecked(store_.settings().globalMuted);
    // By name, so that the panel draws it in its own colours.
    icon_.setIcon(QIcon::fromTheme(isArmed(store_.settings()) ? QStringLiteral("chimewell-armed-symbolic")
                                                              : QStringLiteral("chimewell-symbolic")));
}

}
