// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "core/services.h"
#include "ports/status_icon.h"
#include "ui/controls/windows.h"
#include "ui/panel/panel_window.h"

#include <QObject>
#include <QPointer>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace chimewell {

class SettingsWindow;
class OnboardingWindow;

/// The icon and the windows. A window exists only while it is open, so that an application that only listens
/// stays small.
class UserInterface final : public QObject {
    Q_OBJECT
public:
    /// Where the colours come from. `oursIfPlain`: from a palette of ours where the desktop has none of its
    /// own.
    enum class Palette : std::uint8_t { system, oursIfPlain };
    /// What the windows need of the desktop and Qt doesn't offer.
    struct Desktop {
        Palette palette = Palette::system;
        /// Whether a window can be translucent.
        std::function<bool()> isComposited = [] { return true; };
        PreparePanel preparePanel = {};
    };
    UserInterface(Services& services, Desktop desktop);
    ~UserInterface() override;

    /// Shows the state of the application in `icon` from now on; null where nothing shows icons.
    void setIcon(std::unique_ptr<StatusIcon> icon);
    /// Opens the onboarding unless the user has ended it once.
    void start();
    /// Call it when the user starts the application while it is running.
    void activate();
    void openSettings();
    void openOnboarding();

    /// The desktop's preference, if it has one. Used only with our palette.
    void setDark(std::optional<bool> isDark);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    Windows windows();
    void addKeys(QWidget& window);
    void click(const std::optional<ScreenArea>& icon);
    void perform(IconCommand command);
    /// Beside the icon; as an ordinary window where there is no icon.
    void openPanel(const std::optional<ScreenArea>& icon);
    void bringForward(QWidget& window);
    void showState();
    void prepareLook();
    void applyPalette();

    Services& services_;
    const Desktop desktop_;
    std::unique_ptr<StatusIcon> icon_;
    Subscription settingsChange_;
    Subscription muteChange_;
    QPointer<PanelWindow> panel_;
    QPointer<SettingsWindow> settings_;
    QPointer<OnboardingWindow> onboarding_;
    std::optional<bool> isDark_;
    bool isLookReady_ = false;
    bool isPaletteOurs_ = false;
};

}
