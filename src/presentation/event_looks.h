// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "values/app_settings.h"
#include "values/canonical_event.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace chimewell {

// How events are shown. Icons have the names of macOS's symbols; our own drawings for Linux have the same
// names.

/// The events with a switch in the panel. The settings have all of them.
inline constexpr std::array quickEvents = {CanonicalEvent::finished, CanonicalEvent::waitingInput};

/// The events that the settings list, in their order: all but `userActed`, which only ends reminders.
inline constexpr std::array configurableEvents = {
    CanonicalEvent::finished,     CanonicalEvent::waitingInput, CanonicalEvent::subagentFinished,
    CanonicalEvent::error,        CanonicalEvent::toolUse,      CanonicalEvent::longRunningStart,
    CanonicalEvent::sessionStart,
};
static_assert(configurableEvents.size() == allCanonicalEvents.size() - 1,
              "an event has no place in the settings");

std::string_view iconName(CanonicalEvent event);

/// What an icon's colour tells.
enum class Tone : std::uint8_t { neutral, secondary, accent, green, orange, red };

Tone iconTone(CanonicalEvent event);

/// One line about what the event means.
Text description(CanonicalEvent event);

/// True if previewing the event would be audible.
bool canPreview(const EventSetting& setting);

}
