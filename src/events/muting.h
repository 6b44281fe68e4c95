// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"
#include "base/subscription.h"
#include "ports/clock.h"
#include "ports/timers.h"
#include "settings/settings_store.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace chimewell {

/// Whether alerts are muted: until the user switches them on again, which the settings store, or for a while.
/// Nobody else reads or changes that setting. A mute for a while isn't stored, so it ends with the
/// application at the latest.
class Muting {
public:
    Muting(SettingsStore& store, const Clock& clock, Timers& timers);

    bool isMuted() const { return timer_ || store_.settings().globalMuted; }
    /// When the mute ends by itself, on the clock as it is set now; absent if it doesn't.
    std::optional<Date> mutedUntil() const;

    /// Ends a mute for a while, too.
    void setMuted(bool muted);
    /// Also replaces a mute that wouldn't end by itself.
    void muteFor(std::chrono::minutes duration);

    /// `callback` runs when one of the answers above has changed.
    [[nodiscard]] Subscription onChange(std::function<void()> callback);

private:
    struct State {
        bool isMuted = false;
        std::optional<Instant> end; ///< Of a mute for a while.
        bool operator==(const State&) const = default;
    };

    State state() const;
    void announceChange();

    SettingsStore& store_;
    const Clock& clock_;
    Timers& timers_;
    Instant end_;                  ///< While there is a timer.
    std::unique_ptr<Timer> timer_; ///< Ends a mute for a while.
    State announced_;
    Subscribers subscribers_;
    Subscription storeChange_;
};

}
