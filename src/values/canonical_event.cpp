// SPDX-License-Identifier: MIT
#include "values/canonical_event.h"

#include "base/translatable.h"

#include <cstddef>

namespace chimewell {

namespace {

struct Texts {
    std::string_view rawName;
    std::string_view displayName;
    std::string_view spokenPhrase;
    std::string_view bannerBody;
};

constexpr std::array<Texts, allCanonicalEvents.size()> texts = {{
    {"finished", translatable("Finished"), translatable("The agent has finished"),
     translatable("The agent finished responding and is idle.")},
    {"waiting_input", translatable("Waiting for input"), translatable("The agent is waiting for your input"),
     translatable("The agent is waiting for your input or a permission decision.")},
    {"subagent_finished", translatable("Subagent finished"), translatable("A subagent finished"),
     translatable("A subagent completed its task.")},
    {"error", translatable("Error"), translatable("The agent reported an error"),
     translatable("The agent reported an error.")},
    {"tool_use", translatable("Tool use"), translatable("The agent is using a tool"),
     translatable("The agent is about to use a tool.")},
    {"long_running_start", translatable("Long-running task started"), translatable("A long task has started"),
     translatable("A long-running task has begun.")},
    {"session_start", translatable("Session started"), translatable("A new session started"),
     translatable("A new agent session started.")},
    {"user_acted", translatable("User responded"), "", translatable("You responded to the agent.")},
}};

const Texts& textsOf(CanonicalEvent event)
{
    return texts[static_cast<std::size_t>(event)];
}

}

std::string_view rawName(CanonicalEvent event)
{
    return textsOf(event).rawName;
}

std::optional<CanonicalEvent> eventNamed(std::string_view rawName)
{
    for (const CanonicalEvent event : allCanonicalEvents)
        if (textsOf(event).rawName == rawName) return event;
    return std::nullopt;
}

std::string_view displayName(CanonicalEvent event)
{
    return textsOf(event).displayName;
}

std::string_view defaultSpokenPhrase(CanonicalEvent event)
{
    return textsOf(event).spokenPhrase;
}

std::string_view defaultBannerBody(CanonicalEvent event)
{
    return textsOf(event).bannerBody;
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
