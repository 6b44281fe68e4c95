// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/alert_audio.h"
#include "alerts/notification_service.h"
#include "base/last_seen.h"
#include "events/event_history.h"
#include "events/muting.h"
#include "events/reminder_manager.h"
#include "events/waiting_banners.h"
#include "ports/clock.h"
#include "settings/settings_store.h"
#include "values/event_payload.h"

#include <chrono>
#include <cstddef>

namespace chimewell {

/// Decides what one event triggers: history, sound, speech, banner, reminder. An event that triggers nothing
/// (muted, disabled, repeated, filtered) is not reported. Reads the settings for each event.
class EventRouter {
public:
    struct Collaborators {
        const SettingsStore& store;
        const Muting& muting;
        EventHistory& history;
        AlertAudio& audio;
        NotificationService& notifications;
        ReminderManager& reminders;
        const Clock& clock;
    };
    /// All of them outlive the router.
    explicit EventRouter(Collaborators with) : with_(with), waitingBanners_(with.notifications) {}

    void handle(const EventPayload& payload);
    /// Alerts once more for a payload that is still waiting. `ReminderManager`, which calls it, has checked
    /// that alerts are not muted.
    void fireReminder(const EventPayload& payload);

    /// A repeat of one session's event is dropped while it is younger than this.
    static constexpr std::chrono::seconds throttleWindow{5};
    static constexpr std::chrono::seconds throttleMemory{60};
    /// How many keys are remembered. Only a flood of events reaches it.
    static constexpr std::size_t throttleCapacity = 1000;

private:
    enum class Occasion { first, reminder };

    /// Ends or settles the reminders of a session that no longer waits, and withdraws its banners.
    void updateWaits(const EventPayload& payload);
    bool isRepeat(const EventPayload& payload);
    void alert(const EventPayload& payload, const EventSetting& setting, Occasion occasion);

    Collaborators with_;
    WaitingBanners waitingBanners_;
    LastSeen lastPresentedAt_{throttleCapacity}; ///< By raw event name, "|" and session.
};

}
