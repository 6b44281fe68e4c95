// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/notification_service.h"
#include "ports/speech_synthesizer.h"
#include "values/texts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

// What the settings offer and say.

/// The panes of the settings window, in order.
enum class Pane : std::uint8_t { events, providers, recent, general };

inline constexpr std::array allPanes = {Pane::events, Pane::providers, Pane::recent, Pane::general};

std::string_view rawName(Pane pane);
Text title(Pane pane);
std::string_view iconName(Pane pane);

/// How the permission to show banners is described.
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

/// What the field for a custom interval shows: whole minutes, rounded down.
std::int64_t shownMinutes(std::int64_t seconds);
/// What is stored when the field is edited.
std::int64_t storedSeconds(std::int64_t minutes);

inline constexpr std::int64_t maxReminderMinutes = 60;
inline constexpr std::int64_t maxReminderCount = 20;

}
