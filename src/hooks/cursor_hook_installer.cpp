// SPDX-License-Identifier: MIT
#include "hooks/cursor_hook_installer.h"

#include "values/provider.h"

#include <array>

namespace chimewell {

namespace {

using Kind = JSONValue::Kind;

constexpr std::array<JSONHookInstaller::Event, 2> events = {{
    {"stop", "finished"},
    {"subagentStop", "subagent_finished"},
}};

}

CursorHookInstaller::CursorHookInstaller(Collaborators with)
    : JSONHookInstaller(with,
                        {.providerId = cursorProvider,
                         .displayName = "Cursor",
                         .settingsFile = ".cursor/hooks.json",
                         .isBeta = true,
                         .hookVersion = 1},
                        {.events = events, .emptiedHooks = EmptiedHooks::stay})
{
}

JSONValue CursorHookInstaller::entry(const std::string& command) const
{
    return JSONValue::object(std::array{JSONMember{"command", JSONValue::string(command)}});
}

std::vector<std::string> CursorHookInstaller::commands(const JSONValue& entry) const
{
    std::vector<std::string> list;
    for (const JSONMember& member : entry.members())
        if (member.key == "command" && member.value.is(Kind::string)) list.emplace_back(member.value.text());
    return list;
}

JSONValue CursorHookInstaller::completed(JSONValue settings) const
{
    if (settings.find("version")) return settings;
    return withMember(settings, "version", JSONValue::number("1"));
}

}
