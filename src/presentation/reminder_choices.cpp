// SPDX-License-Identifier: MIT
#include "presentation/reminder_choices.h"

#include <algorithm>

namespace chimewell {

std::optional<std::size_t> reminderPreset(std::int64_t seconds)
{
    const auto found = std::ranges::find(reminderPresets, seconds, &ReminderPreset::seconds);
    if (found == reminderPresets.end()) return std::nullopt;
    return static_cast<std::size_t>(found - reminderPresets.begin());
}

std::int64_t shownMinutes(std::int64_t seconds)
{
    return std::max(std::int64_t{1}, seconds / 60);
}

std::int64_t storedSeconds(std::int64_t minutes)
{
    return std::clamp(minutes, std::int64_t{1}, maxReminderMinutes) * 60;
}

}
