// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ports/status_icon.h"
#include "ui/controls/windows.h"
#include "ui/panel/panel_window.h"

#include <QObject>
#include <QPointer>
#include <QRect>

#include <memory>
#include <optional>

namespace chimewell {

class SettingsWindow;
class OnboardingWindow;

/// The icon and the windows. A window is made when it is opened and given back when it is closed, so that an
/// application that only listens stays small.
class UserInterface final : public QObject {
    Q_OBJECT
public:
    explicit UserInterface(Services& services);
    ~UserInterface() override;

    /// Shows the state of the application in `icon` from now on; null where nothing shows icons.
    void setIcon(std::unique_ptr<StatusIcon> icon);
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

    Windows windows();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void addKeys(QWidget* window);
    void bringForward(QWidget& window);
    void showState();
    void prepareLook();
    void applyPalette();

    Services& services_;
    std::unique_ptr<StatusIcon> icon_;
    Subscription settingsChange_;
    QPointer<PanelWindow> panel_;
    QPointer<SettingsWindow> settings_;
    QPointer<OnboardingWindow> walkthrough_;
    std::optional<bool> isDark_;
    bool isLookReady_ = false;
    bool isPaletteOurs_ = false;
};

}
