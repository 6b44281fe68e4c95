// SPDX-License-Identifier: MIT
#include "events/reminder_manager.h"

#include <algorithm>
#include <cmath>

namespace chimewell {

using namespace std::chrono_literals;

void ReminderManager::arm(const EventPayload& payload, std::int64_t intervalSeconds, std::int64_t maxCount)
{
    const std::string key = payload.sessionKey();
    cancel(key);
    if (recentlySettled(key, with_.clock.instant())) return;
    if (maxCount < 1 || intervalSeconds < 1) return;

    if (pending_.size() >= maxPending) dropOldest();
    const Instant now = with_.clock.instant();
    const auto interval = period(intervalSeconds);
    Pending& pending = pending_[key] = {.payload = payload,
                                        .period = interval,
                                        .maxCount = maxCount,
                                        .order = ++armings_,
                                        .due = now + interval};
    startTimer(pending, now);
}

void ReminderManager::cancel(const std::string& sessionKey)
{
    pending_.erase(sessionKey);
}

void ReminderManager::markSettled(const EventPayload& payload, Instant when)
{
    const std::string key = payload.sessionKey();
    cancel(key);
    cancel(noSessionKey);
    settledAt_.set(key, when);
    settledAt_.forgetUntil(when - settleWindow);
}

void ReminderManager::unsettle(const std::string& sessionKey)
{
    settledAt_.erase(sessionKey);
}

bool ReminderManager::recentlySettled(const std::string& sessionKey, Instant now)
{
    const auto settled = settledAt_.find(sessionKey);
    if (!settled) return false;
    if (now - *settled <= settleWindow) return true;
    settledAt_.erase(sessionKey);
    return false;
}

void ReminderManager::startTimer(Pending& pending, Instant now)
{
    pending.timer =
        with_.timers.once(pending.due - now, [this, key = pending.payload.sessionKey()] { tick(key); });
}

void ReminderManager::tick(const std::string& sessionKey)
{
    const auto found = pending_.find(sessionKey);
    if (found == pending_.end()) return;
    Pending& pending = found->second;
    const Instant now = with_.clock.instant();
    // Several periods that passed while the machine slept make one tick.
    pending.due += pending.period * (std::max((now - pending.due) / pending.period, std::int64_t{0}) + 1);
    startTimer(pending, now);
    if (with_.muting.isMuted()) return;

    const bool isLast = ++pending.count >= pending.maxCount;
    const std::uint64_t order = pending.order;
    // onFire may cancel the entry or arm another one in its place. So it gets a copy, and the entry is looked
    // up again.
    const EventPayload payload = pending.payload;
    if (onFire) onFire(payload);
    if (!isLast) return;
    const auto still = pending_.find(payload.sessionKey());
    if (still != pending_.end() && still->second.order == order) pending_.erase(still);
}

std::chrono::milliseconds ReminderManager::period(std::int64_t intervalSeconds)
{
    // The settings file may hold any number. A century is as good as never, and no timer overflows.
    constexpr std::int64_t century = std::int64_t{100} * 366 * 24 * 3600;
    const std::chrono::milliseconds interval = std::chrono::seconds(std::min(intervalSeconds, century));
    // Spreads the reminders of sessions that began to wait at the same moment.
    const auto maxJitter = std::min(interval / 10, std::chrono::milliseconds(5s));
    const double jitter = with_.random.unit() * static_cast<double>(maxJitter.count());
    return interval + std::chrono::milliseconds(std::llround(jitter));
}

void ReminderManager::dropOldest()
{
    pending_.erase(
        std::ranges::min_element(pending_, {}, [](const auto& pending) { return pending.second.order; }));
}

}
