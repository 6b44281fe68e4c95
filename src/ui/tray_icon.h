// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "settings/settings_store.h"

#include <QAction>
#include <QMenu>
#include <QSystemTrayIcon>

#include <functional>

namespace chimewell {

/// The icon in the panel and its menu. Follows the settings for as long as it lives.
class TrayIcon {
public:
    struct Actions {
        std::function<void()> playSample;
        std::function<void()> quit;
    };
    TrayIcon(SettingsStore& store, Actions actions);

private:
    void show();

    SettingsStore& store_;
    QMenu menu_;
    QAction* muteAll_;
    QSystemTrayIcon icon_;
    Subscription subscription_;
};

}
