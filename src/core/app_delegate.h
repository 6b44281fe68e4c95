// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/notification_service.h"
#include "core/reopen_requests.h"
#include "events/event_router.h"
#include "ports/application_activation.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/timers.h"
#include "values/shared_names.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace chimewell {

/// Why the application exits.
enum class QuitReason : std::uint8_t { user, sessionEnd };

/// The file that says that the user quit the application: while it exists, an agent's hook does not start it.
/// Failures are ignored: at worst an event starts the application once more.
class DormantMarker {
public:
    DormantMarker(Files& files, const Clock& clock, std::filesystem::path folder)
        : files_(files),
          clock_(clock),
          folder_(std::move(folder))
    {
    }

    void write();
    void clear();

private:
    std::filesystem::path file() const { return folder_ / dormantMarkerName; }

    Files& files_;
    const Clock& clock_;
    std::filesystem::path folder_;
};

/// Takes the event URLs that the system delivers. An invalid one is ignored without a message.
class URLEventHandler {
public:
    URLEventHandler(EventRouter& router, ReopenRequests& reopens) : router_(router), reopens_(reopens) {}

    /// `url` is absent when the request carried no text.
    void handleURLEvent(const std::optional<std::string>& url);
    /// True from the first request of any kind on, valid or not.
    bool didHandleLaunchEvent() const { return didHandleLaunchEvent_; }

private:
    EventRouter& router_;
    ReopenRequests& reopens_;
    bool didHandleLaunchEvent_ = false;
};

/// What happens when the application starts and when it exits, on every system.
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
    /// Only the user's own quit writes the dormant marker. After the session ended, events may start us
    /// again.
    void applicationWillTerminate(QuitReason reason);

    /// Long enough for the event that started the application, if one did, to arrive.
    static constexpr std::chrono::milliseconds launchCheckDelay{500};

private:
    Collaborators with_;
    std::unique_ptr<Timer> launchCheck_;
};

}
