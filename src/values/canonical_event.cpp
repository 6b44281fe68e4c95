// SPDX-License-Identifier: MIT
#include "values/canonical_event.h"

#include "values/sound_option.h"
#include "values/texts.h"

namespace chimewell {

namespace {

struct Facts {
    CanonicalEvent event;
    Text displayName;
    std::optional<Text> spokenPhrase;
    Text bannerBody;
    std::string_view defaultSoundId;
};

using enum CanonicalEvent;
constexpr Facts allFacts[] = {
    {finished, texts::finished, texts::finishedPhrase, texts::finishedBody, "Blow"},
    {waitingInput, texts::waitingInput, texts::waitingInputPhrase, texts::waitingInputBody, "Funk"},
    {subagentFinished, texts::subagentFinished, texts::subagentFinishedPhrase, texts::subagentFinishedBody,
     "Pop"},
    {error, texts::error, texts::errorPhrase, texts::errorBody, "Basso"},
    {toolUse, texts::toolUse, texts::toolUsePhrase, texts::toolUseBody, "Tink"},
    {longRunningStart, texts::longRunningStart, texts::longRunningStartPhrase, texts::longRunningStartBody,
     "Purr"},
    {sessionStart, texts::sessionStart, texts::sessionStartPhrase, texts::sessionStartBody, "Bottle"},
    {userActed, texts::userActed, std::nullopt, texts::userActedBody, silentSoundId},
};
static_assert(std::ranges::equal(allFacts, allCanonicalEvents, {}, &Facts::event), "an event has no texts");

const Facts& factsOf(CanonicalEvent event)
{
    return allFacts[static_cast<std::size_t>(event)];
}

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
    return event == userActed;
}

bool enabledByDefault(CanonicalEvent event)
{
    return event == finished || event == waitingInput;
}

}
