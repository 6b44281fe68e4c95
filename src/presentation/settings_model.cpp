// SPDX-License-Identifier: MIT
#include "presentation/settings_model.h"

#include <algorithm>
#include <iterator>

namespace chimewell {

namespace {

struct Looks {
    std::string_view rawName;
    Text title;
    std::string_view icon;
};

constexpr Looks looks[] = {
    {"events", texts::events, "bell.badge"},
    {"providers", texts::providers, "puzzlepiece.extension"},
    {"recent", texts::recent, "clock.arrow.circlepath"},
    {"general", texts::general, "gearshape"},
};
static_assert(std::size(looks) == allPanes.size(), "a pane has no row");

const Looks& looksOf(Pane pane)
{
    return looks[static_cast<std::size_t>(pane)];
}

}

std::string_view rawName(Pane pane)
{
    return looksOf(pane).rawName;
}

Text title(Pane pane)
{
    return looksOf(pane).title;
}

std::string_view iconName(Pane pane)
{
    return looksOf(pane).icon;
}

Text permissionText(AuthStatus status)
{
    switch (status) {
    case AuthStatus::authorized:
        return texts::allowed;
    case AuthStatus::provisional:
        return texts::allowedProvisional;
    case AuthStatus::denied:
        return texts::denied;
    case AuthStatus::notDetermined:
        return texts::notRequested;
    case AuthStatus::unavailable:
        break;
    }
    return texts::unavailable;
}

std::vector<Voice> voiceChoices(std::vector<Voice> voices, const std::optional<std::string>& stored)
{
    if (stored && std::ranges::find(voices, *stored, &Voice::identifier) == voices.end())
        voices.push_back({.identifier = *stored, .name = *stored, .language = {}});
    return voices;
}

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
