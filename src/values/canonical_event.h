// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

namespace chimewell {

/// What an agent can tell us, in the order of the settings and of the screen.
enum class CanonicalEvent : std::uint8_t {
    finished,
    waitingInput,
    subagentFinished,
    error,
    toolUse,
    longRunningStart,
    sessionStart,
    userActed,
};

inline constexpr std::array allCanonicalEvents = {
    CanonicalEvent::finished,     CanonicalEvent::waitingInput, CanonicalEvent::subagentFinished,
    CanonicalEvent::error,        CanonicalEvent::toolUse,      CanonicalEvent::longRunningStart,
    CanonicalEvent::sessionStart, CanonicalEvent::userActed,
};

struct EventName {
    CanonicalEvent event;
    std::string_view rawName;
};
inline constexpr EventName eventNames[] = {
    {CanonicalEvent::finished, "finished"},
    {CanonicalEvent::waitingInput, "waiting_input"},
    {CanonicalEvent::subagentFinished, "subagent_finished"},
    {CanonicalEvent::error, "error"},
    {CanonicalEvent::toolUse, "tool_use"},
    {CanonicalEvent::longRunningStart, "long_running_start"},
    {CanonicalEvent::sessionStart, "session_start"},
    {CanonicalEvent::userActed, "user_acted"},
};
static_assert(std::ranges::equal(eventNames, allCanonicalEvents, {}, &EventName::event),
              "an event has no name");

/// The name on the wire, in the settings file and in keys.
constexpr std::string_view rawName(CanonicalEvent event)
{
    return eventNames[static_cast<std::size_t>(event)].rawName;
}

/// The event of exactly that raw name; there are no aliases.
constexpr std::optional<CanonicalEvent> eventNamed(std::string_view rawName)
{
    const auto* const found = std::ranges::find(eventNames, rawName, &EventName::rawName);
    return found == std::end(eventNames) ? std::nullopt : std::optional(found->event);
}

Text displayName(CanonicalEvent event);
/// Spoken when the user chose no phrase.
Phrase defaultSpokenPhrase(CanonicalEvent event);
/// Shown when the agent sent no message.
Text defaultBannerBody(CanonicalEvent event);
/// The `SoundOption` that the event is played with until the user chooses another.
std::string_view defaultSoundId(CanonicalEvent event);
/// Never alerted for: it only ends reminders.
bool isSilent(CanonicalEvent event);
bool enabledByDefault(CanonicalEvent event);

}
