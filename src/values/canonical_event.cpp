// SPDX-License-Identifier: MIT
#include "values/canonical_event.h"

#include "values/sound_option.h"
#include "values/texts.h"

#include <cstddef>

namespace chimewell {

namespace {

struct Facts {
    std::string_view rawName;
    Text displayName;
    std::optional<Text> spokenPhrase;
    Text bannerBody;
    std::string_view defaultSoundId;
};

/// The one table of events: one without a row here does not compile.
constexpr std::optional<Facts> findFacts(CanonicalEvent event)
{
    using namespace texts;
    switch (event) {
    case CanonicalEvent::finished:
        return Facts{"finished", finished, finishedPhrase, finishedBody, "Blow"};
    case CanonicalEvent::waitingInput:
        return Facts{"waiting_input", waitingInput, waitingInputPhrase, waitingInputBody, "Funk"};
    case CanonicalEvent::subagentFinished:
        return Facts{"subagent_finished", subagentFinished, subagentFinishedPhrase, subagentFinishedBody,
                     "Pop"};
    case CanonicalEvent::error:
        return Facts{"error", texts::error, errorPhrase, errorBody, "Basso"};
    case CanonicalEvent::toolUse:
        return Facts{"tool_use", toolUse, toolUsePhrase, toolUseBody, "Tink"};
    case CanonicalEvent::longRunningStart:
        return Facts{"long_running_start", longRunningStart, longRunningStartPhrase, longRunningStartBody,
                     "Purr"};
    case CanonicalEvent::sessionStart:
        return Facts{"session_start", sessionStart, sessionStartPhrase, sessionStartBody, "Bottle"};
    case CanonicalEvent::userActed:
        return Facts{"user_acted", userActed, std::nullopt, userActedBody, silentSoundId};
    }
    return std::nullopt;
}

constexpr std::size_t tableSize()
{
    std::size_t size = 0;
    while (findFacts(static_cast<CanonicalEvent>(size)))
        ++size;
    return size;
}
static_assert(allCanonicalEvents.size() == tableSize(), "allCanonicalEvents lacks an event");

Facts factsOf(CanonicalEvent event)
{
    return *findFacts(event); // NOLINT(bugprone-unchecked-optional-access): every event has a row
}

}

std::string_view rawName(CanonicalEvent event)
{
    return factsOf(event).rawName;
}

std::optional<CanonicalEvent> eventNamed(std::string_view rawName)
{
    for (const CanonicalEvent event : allCanonicalEvents)
        if (factsOf(event).rawName == rawName) return event;
    return std::nullopt;
}

Text displayName(CanonicalEvent event)
{
    return factsOf(event).displayName;
}

Phrase defaultSpokenPhrase(CanonicalEvent event)
{
    const auto phrase = factsOf(event).spokenPhrase;
    return phrase ? Phrase(*phrase) : Phrase();
}

Text defaultBannerBody(CanonicalEvent event)
{
    return factsOf(event).bannerBody;
}

std::string_view defaultSoundId(CanonicalEvent event)
{
    return factsOf(event).defaultSoundId;
}

bool isSilent(CanonicalEvent event)
{
    return event == CanonicalEvent::userActed;
}

bool enabledByDefault(CanonicalEvent event)
{
    return event == CanonicalEvent::finished || event == CanonicalEvent::waitingInput;
}

}
