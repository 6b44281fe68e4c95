// SPDX-License-Identifier: MIT
#pragma once

#include "base/last_seen.h"
#include "base/time_point.h"
#include "ports/clock.h"
#include "ports/random.h"
#include "ports/timers.h"
#include "settings/settings_store.h"
#include "values/event_payload.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace chimewell {

/// Repeats the alert of a waiting session until the user acts, the agent finishes, or the limit is
/// reached. One pending reminder for each session.
class ReminderManager {
public:
    struct Collaborators {
        const SettingsStore& store;
        const Clock& clock;
        Timers& timers;
        Random& random;
    };
    explicit ReminderManager(Collaborators with) : with_(with) {}

    /// Runs with the waiting payload at every counted tick; set once at start-up.
    std::function<void(const EventPayload&)> onFire;

    /// Replaces the session's reminder, counting again from zero. Arms nothing when the session
    /// settled less than `settleWindow` ago or a limit is below 1. At most `maxPending` sessions are
    /// kept: the one armed longest ago goes.
    void arm(const EventPayload& payload, std::int64_t intervalSeconds, std::int64_t maxCount);
    void cancel(const std::string& sessionKey);
    /// The payload's session has finished at that moment: its reminder ends, and so does the one of
    /// events that carried no session.
    void markSettled(const EventPayload& payload, Instant when);
    /// The user answered: the next wait may remind at once.
    void unsettle(const std::string& sessionKey);

    static constexpr std::chrono::seconds settleWindow{90};
    static constexpr std::size_t maxPending = 1000;
    /// More sessions than anybody runs; a flood of events stays within it.
    static constexpr std::size_t maxSettled = 1000;

private:
    struct Pending {
        EventPayload payload;
        std::chrono::nanoseconds period{};
        std::int64_t maxCount = 0;
        std::uint64_t order = 0; ///< Grows with each arming.
        Instant due;             ///< Of the next tick.
        std::int64_t count = 0;
        std::unique_ptr<Timer> timer = nullptr;
    };

    bool recentlySettled(const std::string& sessionKey, Instant now);
    void startTimer(Pending& pending, Instant now);
    void tick(const std::string& sessionKey);
    std::chrono::milliseconds period(std::int64_t intervalSeconds);
    void dropOldest();

    Collaborators with_;
    std::map<std::string, Pending> pending_;
    LastSeen settledAt_{maxSettled};
    std::uint64_t armings_ = 0;
};

}
