// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "platform/macos/appkit_activation.h"
#include "platform/macos/appkit_system_sounds.h"
#include "platform/macos/appkit_workspace.h"
#include "platform/macos/apple_events.h"
#include "platform/macos/avf_speech_synthesizer.h"
#include "platform/macos/foundation_folders.h"
#include "platform/macos/foundation_user_locale.h"
#include "platform/macos/run_loop_timers.h"
#include "platform/macos/service_management_login_item.h"
#include "platform/macos/user_notification_center.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/random_device.h"
#include "platform/posix/running_lock.h"
#include "ui/user_interface.h"

#include <QObject>

#include <optional>

class QEvent;

namespace chimewell {

/// The application on macOS: its adapters, the services on them, the windows, and the ways to exit.
class Application final : public QObject {
    Q_OBJECT
public:
    /// The Qt application exists and its event loop does not run yet. `translator` and `clock` outlive the
    /// application.
    Application(const Translator& translator, const Clock& clock);

protected:
    /// Sees opened URLs before Qt does.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void didLaunch();
    void quit(QuitReason reason);

    // Members are created in this order.
    FoundationUserFolders folders_;
    PosixFiles files_;
    RunLoopTimers timers_;
    RandomDevice random_;
    FoundationUserLocale locale_;
    BundleResources resources_;
    UserNotificationCenter center_;
    AppKitSystemSounds sounds_;
    AvfSpeechSynthesizer speech_;
    AppKitWorkspace workspace_;
    ServiceManagementLoginItem loginItem_;
    AppKitActivation activation_;

    Services services_;
    std::optional<RunningLock> running_; ///< Tells the helper that the application runs.
    QuitReason quitReason_ = QuitReason::user;

    UserInterface interface_;
    AppleEvents events_;
};

}
