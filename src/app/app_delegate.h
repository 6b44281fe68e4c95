// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/notification_service.h"
#include "app/dormant_marker.h"
#include "app/url_event_handler.h"
#include "ports/application_activation.h"
#include "ports/timers.h"

#include <chrono>
#include <cstdint>
#include <memory>

namespace chimewell {

/// Why the application ends.
enum class QuitReason : std::uint8_t { user, sessionEnd };

/// What happens at the application's start and at its end, whatever the system.
class AppDelegate {
public:
    struct Collaborators {
        ApplicationActivation& activation;
        const URLEventHandler& urls;
        NotificationService& notifications;
        DormantMarker& marker;
        Timers& timers;
    };
    explicit AppDelegate(Collaborators with) : with_(with) {}

    void applicationDidFinishLaunching();
    /// Only the user's own quit leaves the dormant marker: closed by the system, we are wanted again.
    void applicationWillTerminate(QuitReason reason);

    /// By then the event that started the application, if one did, has arrived.
    static constexpr std::chrono::milliseconds launchCheckDelay{500};

private:
    Collaborators with_;
    std::unique_ptr<Timer> launchCheck_;
};

}
