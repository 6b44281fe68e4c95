// SPDX-License-Identifier: MIT
#pragma once

#include "values/texts.h"

#include <array>
#include <cstdint>
#include <optional>

namespace chimewell {

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
