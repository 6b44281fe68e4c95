// SPDX-License-Identifier: MIT
#include "events/event_router.h"

#include "values/event_payload.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace chimewell {

namespace {

constexpr std::array<std::string_view, 3> permissionWords = {"permission", "approve", "confirm"};
constexpr std::array<std::string_view, 2> idleWords = {"waiting for your input", "waiting for input"};

std::string lowerCased(std::string text)
{
    // ASCII is enough: the words searched for are ASCII. Only the Kelvin sign has one of their letters as its
    // lower case, and no agent writes that.
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

/// True for an agent's own reminder that it is idle, false for its requests for a permission.
bool isIdlePrompt(const EventPayload& payload)
{
    if (payload.type != CanonicalEvent::waitingInput || !payload.message) return false;
    const std::string message = lowerCased(*payload.message);
    const auto isInMessage = [&](std::string_view word) { return message.contains(word); };
    return std::ranges::none_of(permissionWords, isInMessage) && std::ranges::any_of(idleWords, isInMessage);
}

}

void EventRouter::handle(const EventPayload& payload)
{
    // Before any filter: an event that raises no alert still ends a wait.
    updateWaits(payload);
    if (isSilent(payload.type) || isIdlePrompt(payload)) return;

    if (with_.muting.isMuted()) return;
    const AppSettings& settings = with_.store.settings();
    const EventSetting* const setting = settings.setting(payload.type);
    if (!setting || !setting->enabled) return;
    if (isRepeat(payload)) return;

    alert(payload, *setting, Occasion::first);
    if (payload.type == CanonicalEvent::waitingInput && settings.remindersEnabled)
        with_.reminders.arm(payload, settings.reminderIntervalSeconds, settings.reminderMaxCount);
}

void EventRouter::fireReminder(const EventPayload& payload)
{
    const EventSetting* const setting = with_.store.settings().setting(payload.type);
    if (!setting || !setting->enabled) return;
    alert(payload, *setting, Occasion::reminder);
}

void EventRouter::updateWaits(const EventPayload& payload)
{
    const std::string key = payload.sessionKey();
    if (payload.type == CanonicalEvent::userActed) {
        with_.reminders.cancel(key);
        with_.reminders.unsettle(key);
        waitingBanners_.withdraw(key);
    } else if (payload.type == CanonicalEvent::finished) {
        with_.reminders.markSettled(payload, with_.clock.instant());
        waitingBanners_.withdraw(key);
        waitingBanners_.withdraw(noSessionKey);
    }
}

bool EventRouter::isRepeat(const EventPayload& payload)
{
    // All events without a session share the empty name. No session has it.
    const std::string key = std::string(rawName(payload.type)) + "|" + payload.session.value_or("");
    const Instant now = with_.clock.instant();
    const auto last = lastPresentedAt_.find(key);
    if (last && now - *last < throttleWindow) return true;

    lastPresentedAt_.set(key, now);
    lastPresentedAt_.forgetUntil(now - throttleMemory);
    return false;
}

void EventRouter::alert(const EventPayload& payload, const EventSetting& setting, Occasion occasion)
{
    const bool isReminder = occasion == Occasion::reminder;
    if (isReminder || !payload.isTest) with_.history.add(payload, isReminder);
    with_.audio.play(setting);
    if (!setting.showPopup) return;
    // Absent only if banners are unavailable. The settings show that.
    const auto banner = with_.notifications.post(
        alertTitle(payload, isReminder), alertBody(payload.type, payload.message), payload.cwd, payload.term);
    if (banner && payload.type == CanonicalEvent::waitingInput)
        waitingBanners_.add(payload.sessionKey(), *banner);
}

}
