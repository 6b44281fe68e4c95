// SPDX-License-Identifier: MIT
#pragma once

#include "app/app_delegate.h"
#include "app/services.h"
#include "platform/linux/activation_tokens.h"
#include "platform/linux/boot_timers.h"
#include "platform/linux/dbus_notification_center.h"
#include "platform/linux/freedesktop_application.h"
#include "platform/linux/icu_user_locale.h"
#include "platform/linux/linux_workspace.h"
#include "platform/linux/pulse_system_sounds.h"
#include "platform/linux/ssip_speech_synthesizer.h"
#include "platform/linux/termination_signals.h"
#include "platform/linux/tray_host.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/random_device.h"
#include "platform/posix/xdg_user_folders.h"
#include "ui/tray_icon.h"

#include <QDBusConnection>
#include <QObject>

#include <filesystem>
#include <optional>
#include <string>

namespace chimewell {

/// The application on the Linux desktop: its adapters, the services on them, and what ends it.
class Application final : public QObject {
    Q_OBJECT
public:
    /// `seat` is claimed; `sounds` is the folder of our alert sounds. The Qt application exists and its
    /// event loop does not run yet.
    Application(const QDBusConnection& bus, FreedesktopApplication& seat,
                const std::filesystem::path& sounds);

private Q_SLOTS:
    void endWithSession();

private:
    void act(const std::string& action);
    void quitByUser();

    // The order of the members is the order of the start.
    XdgUserFolders folders_;
    PosixFiles files_;
    PosixClock clock_;
    BootTimers timers_;
    RandomDevice random_;
    IcuUserLocale locale_;
    ActivationTokens tokens_;
    DbusNotificationCenter center_;
    PulseSystemSounds sounds_;
    SsipSpeechSynthesizer speech_;
    LinuxWorkspace workspace_;

    Services services_;

    TerminationSignals signals_;
    /// Every end that nobody asked for is the session's: log-out, a signal, the bus that went away.
    QuitReason quitReason_ = QuitReason::sessionEnd;

    std::optional<TrayIcon> icon_; ///< Once there is a host to show it.
    TrayHost trayHost_;
};

}
