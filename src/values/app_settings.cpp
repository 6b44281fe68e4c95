// SPDX-License-Identifier: MIT
#include "values/app_settings.h"

#include "base/white_space.h"
#include "values/provider.h"

#include <algorithm>
#include <array>

namespace chimewell {

namespace {

constexpr std::array defaultProviderOrder = {claudeProvider, cursorProvider, codexProvider};

}

EventSetting EventSetting::defaultSetting(CanonicalEvent event)
{
    return {.event = event,
            .enabled = enabledByDefault(event),
            .soundId = std::string(defaultSoundId(event)),
            .showPopup = enabledByDefault(event),
            .speak = false,
            .spokenPhrase = {}};
}

Phrase EventSetting::phraseToSpeak() const
{
    const std::string_view phrase = trimmed(spokenPhrase);
    return phrase.empty() ? defaultSpokenPhrase(event) : Phrase(phrase);
}

std::vector<EventSetting> AppSettings::defaultEvents()
{
    std::vector<EventSetting> events;
    events.reserve(allCanonicalEvents.size());
    for (const CanonicalEvent event : allCanonicalEvents)
        events.push_back(EventSetting::defaultSetting(event));
    return events;
}

std::vector<ProviderInstallState> AppSettings::defaultProviders()
{
    std::vector<ProviderInstallState> providers;
    providers.reserve(defaultProviderOrder.size());
    for (const std::string_view identifier : defaultProviderOrder)
        providers.push_back({.providerId = std::string(identifier)});
    return providers;
}

void AppSettings::normalize()
{
    for (const CanonicalEvent event : allCanonicalEvents)
        if (!setting(event)) events.push_back(EventSetting::defaultSetting(event));
    for (const std::string_view identifier : defaultProviderOrder)
        if (std::ranges::find(providers, identifier, &ProviderInstallState::providerId) == providers.end())
            providers.push_back({.providerId = std::string(identifier)});
    schemaVersion = currentSchemaVersion;
}

const EventSetting* AppSettings::setting(CanonicalEvent event) const
{
    const auto found = std::ranges::find(events, event, &EventSetting::event);
    return found == events.end() ? nullptr : &*found;
}

EventSetting* AppSettings::setting(CanonicalEvent event)
{
    const auto found = std::ranges::find(events, event, &EventSetting::event);
    return found == events.end() ? nullptr : &*found;
}

bool AppSettings::anyProviderInstalled() const
{
    return std::ranges::any_of(knownProviders, [this](std::string_view identifier) {
        const auto state = std::ranges::find(providers, identifier, &ProviderInstallState::providerId);
        return state != providers.end() && state->installed;
    });
}

}
