// SPDX-License-Identifier: MIT
#include "events/muting.h"

#include <utility>

namespace chimewell {

Muting::Muting(SettingsStore& store, const Clock& clock, Timers& timers)
    : store_(store),
      clock_(clock),
      timers_(timers),
      announced_(state()),
      storeChange_(store.onChange([this] { announceChange(); }))
{
}

std::optional<Date> Muting::mutedUntil() const
{
    if (!timer_) return std::nullopt;
    return clock_.now() + std::chrono::duration_cast<Date::duration>(end_ - clock_.instant());
}

void Muting::setMuted(bool muted)
{
    timer_.reset();
    store_.update([&](AppSettings& settings) { settings.globalMuted = muted; });
}

void Muting::muteFor(std::chrono::minutes duration)
{
    end_ = clock_.instant() + duration;
    timer_ = timers_.once(duration, [this] {
        timer_.reset();
        announceChange();
    });
    if (store_.settings().globalMuted)
        store_.update([](AppSettings& settings) { settings.globalMuted = false; });
    announceChange();
}

Subscription Muting::onChange(std::function<void()> callback)
{
    return subscribers_.add(std::move(callback));
}

Muting::State Muting::state() const
{
    return {.isMuted = isMuted(), .end = timer_ ? std::optional(end_) : std::nullopt};
}

void Muting::announceChange()
{
    const State now = state();
    if (std::exchange(announced_, now) != now) subscribers_.notify();
}

}
