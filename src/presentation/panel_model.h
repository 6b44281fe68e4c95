// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "events/event_history.h"
#include "events/muting.h"
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

/// The top of the panel.
struct PanelHeader {
    Text status;
    bool isListening; ///< Green dot; otherwise orange with a "Finish setup" button.
};
PanelHeader panelHeader(const AppSettings& settings);

/// What the icon shows. It is armed while an agent is set up and alerts are not muted.
StatusIconState statusIconState(const AppSettings& settings, const Muting& muting,
                                const Translator& translator);

/// One recent alert, as the panel and the settings show it.
struct RecentRow {
    CanonicalEvent event = CanonicalEvent::finished;
    Phrase title;
    Phrase message;           ///< The agent's message, or the event's default text.
    std::string relativeTime; ///< "4 min. ago"
    std::string timeText;     ///< "14:29 (4 minutes ago)"
    std::optional<std::string> term;
    std::optional<std::string> cwd;
    bool operator==(const RecentRow&) const = default;

    /// True if a click can open its session.
    bool hasSession() const;
};
RecentRow recentRow(const EventHistory::Entry& entry, const UserLocale& locale, Date now);

/// How many alerts the panel shows.
inline constexpr std::size_t panelRecentRows = 6;

std::vector<RecentRow> panelRows(const EventHistory& history, const UserLocale& locale, Date now);
/// How many alerts only the settings show; absent if none.
std::optional<Phrase> panelMore(const EventHistory& history);

/// The icon beside "Mute all".
std::string_view muteIcon(bool muted);
/// When the mute ends by itself: "Until 15:04"; absent if it doesn't.
std::optional<Phrase> muteEnd(const Muting& muting, const UserLocale& locale);

}
