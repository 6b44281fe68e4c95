// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/notification_service.h"
#include "alerts/sound_player.h"
#include "alerts/voice_announcer.h"
#include "app/app_delegate.h"
#include "app/dormant_marker.h"
#include "app/url_event_handler.h"
#include "events/event_history.h"
#include "events/event_router.h"
#include "events/reminder_manager.h"
#include "events/session_focus.h"
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
#include "settings/settings_store.h"
#include "ui/tray_icon.h"

#include <QDBusConnection>
#include <QObject>

#include <filesystem>
#include <optional>
#include <string>

namespace chimewell {

/// The application on the Linux desktop: every object, made once and handed to those that need it.
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
    void setMuted(bool muted);
    void playSample();
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
    PulseSystemSounds systemSounds_;
    SsipSpeechSynthesizer speech_;
    LinuxWorkspace workspace_;

    SettingsStore store_;
    SoundPlayer sound_;
    NotificationService notifications_;
    VoiceAnnouncer voice_;
    EventHistory history_;
    ReminderManager reminders_;
    EventRouter router_;
    SessionFocus focus_;

    URLEventHandler urls_;
    DormantMarker marker_;
    AppDelegate delegate_;
    TerminationSignals signals_;
    /// Every end that nobody asked for is the session's: log-out, a signal, the bus that went away.
    QuitReason quitReason_ = QuitReason::sessionEnd;

    std::optional<TrayIcon> icon_; ///< Once there is a host to show it.
    TrayHost trayHost_;
};

}
