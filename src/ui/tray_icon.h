// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "ui/interface_services.h"

#include <QAction>
#include <QMenu>
#include <QObject>
#include <QRect>
#include <QSystemTrayIcon>

#include <functional>

namespace chimewell {

/// The icon in the desktop's panel. A click opens ours; its menu offers the same for desktops that show menus
/// only. Follows the settings for as long as it lives.
class TrayIcon final : public QObject {
    Q_OBJECT
public:
    struct Actions {
        std::function<void(const QRect& icon)>
            openPanel; ///< Where the icon is, as well as that can be known.
        std::function<void()> openSettings;
    };
    TrayIcon(const InterfaceServices& services, Actions actions);

private:
    void show();
    QRect place() const;

    const InterfaceServices& services_;
    const Actions actions_;
    QMenu menu_;
    QAction* muteAll_ = nullptr;
    QSystemTrayIcon icon_;
    Subscription subscription_;
};

}
