// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "events/event_history.h"
#include "ports/status_icon.h"
#include "ports/translator.h"
#include "ports/user_locale.h"
#include "values/app_settings.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// What the drop-down panel says at its top.
struct PanelHeader {
    Text status;
    bool isListening; ///< A green dot; an orange one and "Finish setup" otherwise.
};
PanelHeader panelHeader(const AppSettings& settings);

/// What the icon shows. It is armed while an agent is set up and alerts are not muted.
StatusIconState statusIconState(const AppSettings& settings, const Translator& translator);

/// One alert of the past, as the panel and the settings show it.
struct RecentRow {
    CanonicalEvent event = CanonicalEvent::finished;
    Phrase title;
    Phrase message;           ///< What the agent said, else what the event means.
    std::string relativeTime; ///< "4 min. ago"
    std::string timeText;     ///< "14:29 (4 minutes ago)"
    std::optional<std::string> term;
    std::optional<std::string> cwd;
    bool operator==(const RecentRow&) const = default;

    /// Whether there is anything to go back to.
    bool hasSession() const;
};
RecentRow recentRow(const EventHistory::Entry& entry, const UserLocale& locale, Date now);

/// The panel shows so many; the rest is in the settings.
inline constexpr std::size_t panelRecentRows = 6;

std::vector<RecentRow> panelRows(const EventHistory& history, const UserLocale& locale, Date now);
/// Says how many alerts the panel leaves out; nothing if none.
std::optional<Phrase> panelMore(const EventHistory& history);

/// The icon beside "Mute all".
std::string_view muteIcon(bool muted);

}
