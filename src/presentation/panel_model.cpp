// SPDX-License-Identifier: MIT
#include "presentation/panel_model.h"

#include "values/event_payload.h"
#include "values/texts.h"

#include <algorithm>
#include <cstdint>

namespace chimewell {

PanelHeader panelHeader(const AppSettings& settings)
{
    const bool isListening = settings.anyProviderInstalled();
    return {.status = isListening ? texts::listening : texts::setupNeeded, .isListening = isListening};
}

StatusIconState statusIconState(const AppSettings& settings, const Muting& muting,
                                const Translator& translator)
{
    const auto entry = [&](IconCommand command, const Text& label) {
        return IconMenuEntry{.command = command, .label = translator.translate(label)};
    };
    IconMenuEntry mute = entry(IconCommand::toggleMute, texts::muteAll);
    mute.isChecked = muting.isMuted();
    mute.beginsGroup = true;
    IconMenuEntry quit = entry(IconCommand::quit, texts::quit);
    quit.beginsGroup = true;
    quit.tooltip = translator.translate(texts::quitTooltip);
    return {.isArmed = !muting.isMuted() && settings.anyProviderInstalled(),
            .label = translator.translate(
                {texts::titleAndDetail, {texts::panelName, panelHeader(settings).status}}),
            .menu = {entry(IconCommand::openPanel, texts::openPanel), mute,
                     entry(IconCommand::muteForAnHour, texts::muteForAnHour),
                     entry(IconCommand::playSample, texts::playSample),
                     entry(IconCommand::openSettings, texts::openSettings), quit}};
}

bool RecentRow::hasSession() const
{
    return !term.value_or("").empty() || !cwd.value_or("").empty();
}

RecentRow recentRow(const EventHistory::Entry& entry, const UserLocale& locale, Date now)
{
    return {.event = entry.event,
            .title = entry.displayTitle(),
            .message = alertBody(entry.event, entry.message),
            .relativeTime = locale.shortRelativeTime(entry.date, now),
            .timeText = entry.timeText(locale, now),
            .term = entry.term,
            .cwd = entry.cwd};
}

std::vector<RecentRow> panelRows(const EventHistory& history, const UserLocale& locale, Date now)
{
    std::vector<RecentRow> rows;
    for (const EventHistory::Entry& entry : history.entries()) {
        if (rows.size() == panelRecentRows) break;
        rows.push_back(recentRow(entry, locale, now));
    }
    return rows;
}

std::optional<Phrase> panelMore(const EventHistory& history)
{
    const std::size_t count = history.entries().size();
    if (count <= panelRecentRows) return std::nullopt;
    return Phrase(texts::moreInSettings, static_cast<std::int64_t>(count - panelRecentRows));
}

std::string_view muteIcon(bool muted)
{
    return muted ? "bell.slash.fill" : "bell.fill";
}

std::optional<Phrase> muteEnd(const Muting& muting, const UserLocale& locale)
{
    const auto end = muting.mutedUntil();
    if (!end) return std::nullopt;
    return Phrase(texts::until, {locale.shortTime(*end)});
}

}
