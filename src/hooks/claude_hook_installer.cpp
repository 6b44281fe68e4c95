// SPDX-License-Identifier: MIT
#include "hooks/claude_hook_installer.h"

#include "values/provider.h"

#include <array>

namespace chimewell {

namespace {

using Kind = JSONValue::Kind;

constexpr std::array<JSONHookInstaller::Event, 5> events = {{
    {"Stop", "finished"},
    {"Notification", "waiting_input"},
    {"SubagentStop", "subagent_finished"},
    {"UserPromptSubmit", "user_acted", true},
    {"PostToolUse", "user_acted", true},
}};

}

ClaudeHookInstaller::ClaudeHookInstaller(Collaborators with)
    : JSONHookInstaller(with,
                        {.providerId = claudeProvider,
                         .displayName = "Claude Code",
                         .settingsFile = ".claude/settings.json",
                         .isBeta = false,
                         .hookVersion = 3},
                        {.events = events, .emptiedHooks = EmptiedHooks::go})
{
}

JSONValue ClaudeHookInstaller::entry(const std::string& command) const
{
    const JSONValue hook = JSONValue::object(std::array{JSONMember{"type", JSONValue::string("command")},
                                                        JSONMember{"command", JSONValue::string(command)}});
    return JSONValue::object(std::array{JSONMember{"matcher", JSONValue::string("")},
                                        JSONMember{"hooks", JSONValue::array(std::array{hook})}});
}

std::vector<std::string> ClaudeHookInstaller::commands(const JSONValue& group) const
{
    std::vector<std::string> list;
    for (const JSONMember& member : group.members()) {
        if (member.key != "hooks") continue;
        for (const JSONValue& hook : member.value.elements())
            for (const JSONMember& part : hook.members())
                if (part.key == "command" && part.value.is(Kind::string))
                    list.emplace_back(part.value.text());
    }
    return list;
}

}
