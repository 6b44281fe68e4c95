// SPDX-License-Identifier: MIT
#include "values/canonical_event.h"

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
    {"finished", "Finished", "The agent has finished", "The agent finished responding and is idle."},
    {"waiting_input", "Waiting for input", "The agent is waiting for your input",
     "The agent is waiting for your input or a permission decision."},
    {"subagent_finished", "Subagent finished", "A subagent finished", "A subagent completed its task."},
    {"error", "Error", "The agent reported an error", "The agent reported an error."},
    {"tool_use", "Tool use", "The agent is using a tool", "The agent is about to use a tool."},
    {"long_running_start", "Long-running task started", "A long task has started",
     "A long-running task has begun."},
    {"session_start", "Session started", "A new session started", "A new agent session started."},
    {"user_acted", "User responded", "", "You responded to the agent."},
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
