// SPDX-License-Identifier: MIT
#pragma once

#include "values/auth_status.h"
#include "values/texts.h"
#include "values/voice.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

// What the settings offer and say.

/// The parts of the settings, in the order in which they are offered.
enum class Pane : std::uint8_t { events, providers, recent, general };

inline constexpr std::array allPanes = {Pane::events, Pane::providers, Pane::recent, Pane::general};

std::string_view rawName(Pane pane);
Text title(Pane pane);
std::string_view iconName(Pane pane);

/// What we say about the permission to show banners.
Text permissionText(AuthStatus status);

/// What a picker of voices offers after "System default": the installed voices, and the stored one by its
/// identifier when it is not among them, so that showing it does not lose it.
std::vector<Voice> voiceChoices(std::vector<Voice> voices, const std::optional<std::string>& stored);

/// An interval between reminders that can be picked by name.
struct ReminderPreset {
    Text label;
    std::int64_t seconds;
};

inline constexpr std::array reminderPresets = {
    ReminderPreset{texts::thirtySeconds, 30}, ReminderPreset{texts::oneMinute, 60},
    ReminderPreset{texts::twoMinutes, 120},   ReminderPreset{texts::threeMinutes, 180},
    ReminderPreset{texts::fiveMinutes, 300},
};

/// Which preset that interval is, if it is one.
std::optional<std::size_t> reminderPreset(std::int64_t seconds);

/// What the editor of other intervals shows: whole minutes, rounded down. Showing changes nothing.
std::int64_t shownMinutes(std::int64_t seconds);
/// What is stored once the editor is used.
std::int64_t storedSeconds(std::int64_t minutes);

inline constexpr std::int64_t maxReminderMinutes = 60;
inline constexpr std::int64_t maxReminderCount = 20;

}
