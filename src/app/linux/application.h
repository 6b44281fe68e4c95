// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "platform/linux/freedesktop/activation.h"
#include "platform/linux/notifications/dbus_notification_center.h"
#include "platform/linux/session/autostart_login_item.h"
#include "platform/linux/session/boot_timers.h"
#include "platform/linux/session/desktop_appearance.h"
#include "platform/linux/session/freedesktop_application.h"
#include "platform/linux/session/icu_user_locale.h"
#include "platform/linux/session/termination_signals.h"
#include "platform/linux/sound/pulse_system_sounds.h"
#include "platform/linux/speech/ssip_speech_synthesizer.h"
#include "platform/linux/tray/tray_host.h"
#include "platform/linux/workspace/linux_workspace.h"
#include "platform/posix/installed_resources.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/random_device.h"
#include "platform/posix/xdg_user_folders.h"
#include "ui/user_interface.h"

#include <QDBusConnection>
#include <QObject>

#include <filesystem>
#include <optional>
#include <string>

namespace chimewell {

/// The application on a Linux desktop: its adapters, the services on them, the windows, and the ways to exit.
class Application final : public QObject {
    Q_OBJECT
public:
    /// Where the installation is.
    struct Installation {
        std::filesystem::path program; ///< The executable of the application.
        std::filesystem::path sounds;
        std::filesystem::path programs; ///< The folder of the helper.
    };

    /// `host` owns the bus name; it and `translator` outlive the application. The Qt application exists and
    /// its event loop does not run yet.
    Application(const QDBusConnection& bus, FreedesktopApplication& host, const Translator& translator,
                const Installation& installation);

private Q_SLOTS:
    void endWithSession();

private:
    void showIcon(TrayKind kind);
    void act(const std::string& action);
    void quitByUser();

    // Members are created in this order.
    QDBusConnection bus_;
    XdgUserFolders folders_;
    PosixFiles files_;
    PosixClock clock_;
    BootTimers timers_;
    RandomDevice random_;
    IcuUserLocale locale_;
    InstalledResources resources_;
    ActivationTokens tokens_;
    DbusNotificationCenter center_;
    PulseSystemSounds sounds_;
    SsipSpeechSynthesizer speech_;
    LinuxWorkspace workspace_;
    AutostartLoginItem loginItem_;
    NoActivation activation_;

    Services services_;

    TerminationSignals signals_;
    /// Unless the user quits, the session ended: log-out, a signal, or the bus is no longer there.
    QuitReason quitReason_ = QuitReason::sessionEnd;

    UserInterface interface_;
    TrayHost trayHost_;
    DesktopAppearance appearance_;
};

}
