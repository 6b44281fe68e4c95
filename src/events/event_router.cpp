// SPDX-License-Identifier: MIT
#include "events/event_router.h"

#include "values/alert_text.h"

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
    // The words looked for are ASCII, and no other letter's lower case is one of theirs but the
    // Kelvin sign's, which no agent writes.
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

/// An agent's reminder that it is idle; requests for a permission are not.
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
    // Before any filter: an answer ends a reminder also where nothing is alerted.
    keepRemindersInStep(payload);
    if (isSilent(payload.type) || isIdlePrompt(payload)) return;

    const AppSettings& settings = with_.store.settings();
    if (settings.globalMuted) return;
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

void EventRouter::keepRemindersInStep(const EventPayload& payload)
{
    if (payload.type == CanonicalEvent::userActed) {
        with_.reminders.cancel(payload.sessionKey());
        with_.reminders.unsettle(payload.sessionKey());
    } else if (payload.type == CanonicalEvent::finished) {
        with_.reminders.markSettled(payload, with_.clock.instant());
    }
}

bool EventRouter::isRepeat(const EventPayload& payload)
{
    // Events without a session share one empty name here, which no session can have.
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
    // Refused only where banners are unavailable, and then there is nobody to tell.
    if (setting.showPopup)
        static_cast<void>(with_.notifications.post(alertTitle(payload, isReminder),
                                                   alertBody(payload.type, payload.message), payload.cwd,
                                                   payload.term));
}

}
