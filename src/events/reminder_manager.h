// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"
#include "base/last_seen.h"
#include "events/muting.h"
#include "ports/clock.h"
#include "ports/random.h"
#include "ports/timers.h"
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
        const Muting& muting;
        const Clock& clock;
        Timers& timers;
        Random& random;
    };
    explicit ReminderManager(Collaborators with) : with_(with) {}

    /// Called with the waiting payload for every counted tick. Set once at start-up.
    std::function<void(const EventPayload&)> onFire;

    /// Replaces the session's reminder and counts from zero again. Arms nothing if the session settled less
    /// than `settleWindow` ago or if the interval or the count is below 1. Beyond `maxPending` sessions the
    /// reminder armed first is dropped.
    void arm(const EventPayload& payload, std::int64_t intervalSeconds, std::int64_t maxCount);
    void cancel(const std::string& sessionKey);
    /// The payload's session finished at `when`. Ends its reminder and that of events without a session.
    void markSettled(const EventPayload& payload, Instant when);
    /// The user answered, so the next wait may arm a reminder at once.
    void unsettle(const std::string& sessionKey);

    static constexpr std::chrono::seconds settleWindow{90};
    static constexpr std::size_t maxPending = 1000;
    /// Bounds the memory in a flood of events. Nobody runs that many sessions.
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
