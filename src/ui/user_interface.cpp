// SPDX-License-Identifier: MIT
#include "ui/user_interface.h"

#include "presentation/panel_model.h"
#include "ui/controls/windows.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/onboarding/onboarding_window.h"
#include "ui/panel/panel_place.h"
#include "ui/settings/settings_window.h"

#include <QApplication>
#include <QEvent>

#include <utility>

namespace chimewell {

namespace {

/// Whether nobody chose these colours: they are the style's own, or those that Qt takes on Plasma where no
/// colour scheme is stored.
bool isPlain(const QPalette& palette)
{
    const QPalette onPlasma(QColor(223, 220, 217), QColor(214, 210, 208));
    return palette == QApplication::style()->standardPalette() ||
           (palette.button() == onPlasma.button() && palette.window() == onPlasma.window());
}

}

UserInterface::UserInterface(Services& services, Desktop desktop)
    : services_(services),
      desktop_(std::move(desktop)),
      settingsChange_(services.store.onChange([this] { showState(); })),
      muteChange_(services.muting.onChange([this] { showState(); }))
{
    qApp->installEventFilter(this);
}

UserInterface::~UserInterface()
{
    delete panel_;
    delete settings_;
    delete onboarding_;
}

bool UserInterface::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != qApp || event->type() != QEvent::Quit) return QObject::eventFilter(watched, event);
    // Qt would first close every window, as if the user had done so.
    QCoreApplication::exit();
    return true;
}

void UserInterface::setIcon(std::unique_ptr<StatusIcon> icon)
{
    icon_ = std::move(icon);
    if (!icon_) return;
    icon_->setHandlers({.clicked = [this](const auto& place) { click(place); },
                        .chosen = [this](IconCommand command) { perform(command); }});
    showState();
}

void UserInterface::showState()
{
    if (icon_)
        icon_->show(
            statusIconState(services_.store.settings(), services_.muting, services_.ports.translator));
}

void UserInterface::start()
{
    if (!services_.store.settings().hasCompletedOnboarding) openOnboarding();
}

void UserInterface::activate()
{
    if (!services_.store.settings().hasCompletedOnboarding)
        openOnboarding();
    else if (icon_)
        openSettings();
    else
        openPanel(std::nullopt);
}

void UserInterface::click(const std::optional<ScreenArea>& icon)
{
    if (panel_)
        panel_->close();
    else
        openPanel(icon);
}

void UserInterface::perform(IconCommand command)
{
    switch (command) {
    case IconCommand::openPanel:
        return openPanel(std::nullopt);
    case IconCommand::toggleMute:
        return services_.actions.setMuted(!services_.muting.isMuted());
    case IconCommand::muteForAnHour:
        return services_.actions.muteForAnHour();
    case IconCommand::playSample:
        return services_.actions.playSample();
    case IconCommand::openSettings:
        return openSettings();
    case IconCommand::quit:
        return services_.actions.quit();
    }
}

void UserInterface::openPanel(const std::optional<ScreenArea>& icon)
{
    if (panel_) return bringForward(*panel_);
    prepareLook();
    const auto form = !icon_                    ? PanelWindow::Form::window
                      : desktop_.isComposited() ? PanelWindow::Form::roundPopUp
                                                : PanelWindow::Form::popUp;
    panel_ = new PanelWindow(services_, windows(), form);
    addKeys(*panel_);
    panel_->showBeside(panelAnchor(icon), icon_ ? desktop_.preparePanel : PreparePanel());
    services_.actions.comeForward();
}

void UserInterface::bringForward(QWidget& window)
{
    window.show();
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    services_.actions.comeForward();
    window.raise();
    window.activateWindow();
}

void UserInterface::openSettings()
{
    prepareLook();
    if (!settings_) {
        settings_ = new SettingsWindow(services_, windows());
        addKeys(*settings_);
    }
    bringForward(*settings_);
}

void UserInterface::openOnboarding()
{
    prepareLook();
    if (!onboarding_) {
        onboarding_ = new OnboardingWindow(services_);
        addKeys(*onboarding_);
    }
    bringForward(*onboarding_);
}

void UserInterface::addKeys(QWidget& window)
{
    addWindowKeys(window, [this] { openSettings(); }, [this] { services_.actions.quit(); });
}

Windows UserInterface::windows()
{
    return {.openSettings = [this] { openSettings(); }, .openOnboarding = [this] { openOnboarding(); }};
}

void UserInterface::setDark(std::optional<bool> isDark)
{
    isDark_ = isDark;
    if (isPaletteOurs_) applyPalette();
}

void UserInterface::prepareLook()
{
    if (isLookReady_) return;
    isLookReady_ = true;
    isPaletteOurs_ = desktop_.palette == Palette::oursIfPlain && isPlain(QApplication::palette());
    QApplication::setStyle(new ChimewellStyle); // the application owns it
    if (isPaletteOurs_) applyPalette();
}

void UserInterface::applyPalette()
{
    QApplication::setPalette(referencePalette(isDark_.value_or(false)));
}

}
