// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <array>
#include <cstdint>
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

/// The name on the wire, in the settings file and in keys.
std::string_view rawName(CanonicalEvent event);
/// The event of exactly that raw name; there are no aliases.
std::optional<CanonicalEvent> eventNamed(std::string_view rawName);

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
