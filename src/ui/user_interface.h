// SPDX-License-Identifier: MIT
#pragma once

#include "ui/interface_services.h"
#include "ui/panel/panel_window.h"
#include "ui/tray_icon.h"

#include <QObject>
#include <QPointer>
#include <QRect>

#include <optional>

namespace chimewell {

class SettingsWindow;
class WalkthroughWindow;

/// The icon and the windows. A window is made when it is opened and given back when it is closed, so that an
/// application that only listens stays small.
class UserInterface final : public QObject {
    Q_OBJECT
public:
    explicit UserInterface(const InterfaceServices& services);
    ~UserInterface() override;

    /// Whether there is something that shows icons.
    void setIcon(bool isShown);
    /// The walkthrough opens by itself until the user has ended it once.
    void start();
    /// The user started the application, which runs already.
    void activate();
    void openPanel(const QRect& icon);
    void openSettings();
    void openWalkthrough();

    /// What the desktop says of light and dark; nothing where it says nothing. Counts only where the desktop
    /// has no palette of its own.
    void setDark(std::optional<bool> isDark);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    Windows windows();
    void addKeys(QWidget* window);
    void bringForward(QWidget& window);
    void prepareLook();
    void applyPalette();

    const InterfaceServices services_;
    std::optional<TrayIcon> icon_;
    QPointer<PanelWindow> panel_;
    QPointer<SettingsWindow> settings_;
    QPointer<WalkthroughWindow> walkthrough_;
    std::optional<bool> isDark_;
    bool isLookReady_ = false;
    bool isPaletteOurs_ = false;
};

}
