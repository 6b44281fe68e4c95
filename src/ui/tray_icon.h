// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ports/status_icon.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <functional>

class QAction;

namespace chimewell {

/// The icon in the panel of a Linux desktop. Its menu offers what the panel window does, for desktops that
/// only show menus.
class TrayIcon final : public QObject, public StatusIcon {
    Q_OBJECT
public:
    TrayIcon(Services& services, const std::function<void()>& openSettings);

    void show(const StatusIconState& state) override;
    void setClickHandler(std::function<void(const ScreenArea& icon)> clicked) override;

private:
    ScreenArea place() const;

    std::function<void(const ScreenArea&)> clicked_;
    QMenu menu_;
    QAction* muteAll_ = nullptr;
    QSystemTrayIcon icon_;
};

}
