// SPDX-License-Identifier: MIT
#pragma once

#include "ports/status_icon.h"

#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <optional>

namespace chimewell {

/// The icon in a panel that takes icons as windows of their own (freedesktop.org, System Tray Protocol), by
/// Qt.
class TrayIcon final : public QObject, public StatusIcon {
    Q_OBJECT
public:
    TrayIcon();

    void show(const StatusIconState& state) override;
    void setHandlers(Handlers handlers) override;

private:
    std::optional<ScreenArea> place() const;

    Handlers handlers_;
    QMenu menu_;
    QSystemTrayIcon icon_;
};

}
