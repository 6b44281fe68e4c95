// SPDX-License-Identifier: MIT
#include "hooks/json_hook_installer.h"

#include "base/utf8.h"
#include "hooks/helper_command.h"
#include "values/provider.h"
#include "values/texts.h"
#include "json/json_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <utility>

namespace chimewell {

namespace {

using Kind = JSONValue::Kind;

constexpr std::array<JSONHookInstaller::Event, 5> claudeEvents = {{
    {"Stop", CanonicalEvent::finished},
    {"Notification", CanonicalEvent::waitingInput},
    {"SubagentStop", CanonicalEvent::subagentFinished},
    {"UserPromptSubmit", CanonicalEvent::userActed},
    {"PostToolUse", CanonicalEvent::userActed},
}};

constexpr std::array<JSONHookInstaller::Event, 2> cursorEvents = {{
    {"stop", CanonicalEvent::finished},
    {"subagentStop", CanonicalEvent::subagentFinished},
}};

/// Larger files are not read, so none is written either: indentation could make a small file of deep nesting
/// huge.
constexpr std::uint64_t maxFileSize = std::uint64_t{64} << 20;

constexpr std::string_view hooksKey = "hooks";

/// `object` with the value of its last member of that key replaced, or with a new member at the end.
JSONValue withMember(const JSONValue& object, std::string_view key, const JSONValue& value)
{
    std::vector<JSONMember> members = object.members();
    const auto last = std::ranges::find(members.rbegin(), members.rend(), key, &JSONMember::key);
    if (last != members.rend())
        last->value = value;
    else
        members.push_back({std::string(key), value});
    return JSONValue::object(members);
}

/// The values of all members of that key, together.
std::vector<JSONValue> elementsOf(const JSONValue& object, std::string_view key)
{
    std::vector<JSONValue> elements;
    for (const JSONMember& member : object.members())
        if (member.key == key) std::ranges::move(member.value.elements(), std::back_inserter(elements));
    return elements;
}

}

JSONHookInstaller::JSONHookInstaller(Collaborators with, Description description, Format format)
    : HookInstaller(with, description),
      format_(format)
{
}

HookInstaller::Result<HookInstaller::Content> JSONHookInstaller::withHooks(const Content& content,
                                                                           const std::string& helper) const
{
    const auto parsed = content ? parse(*content) : JSONValue::object({});
    if (!parsed) return Error(parsed.error());
    if (!isValidUtf8(helper)) return ioError(texts::couldNotSerialize);
    JSONValue settings = *parsed;
    if (!format_.version.empty() && !settings.find("version"))
        settings = withMember(settings, "version", JSONValue::number(format_.version));

    JSONValue hooks = settings.find(hooksKey).value_or(JSONValue::object({}));
    if (!hooks.is(Kind::object)) return unparseable();
    for (const Event& event : format_.events) {
        const JSONValue array = hooks.find(event.agentName).value_or(JSONValue::array({}));
        if (!array.is(Kind::array)) return unparseable();
        auto entries = othersIn(array);
        entries.push_back(entry(helperCommand(helper, providerId(), rawName(event.reported))));
        hooks = withMember(hooks, event.agentName, JSONValue::array(entries));
    }
    return serialise(withMember(settings, hooksKey, hooks));
}

HookInstaller::Result<HookInstaller::Content>
JSONHookInstaller::withoutHooks(const std::string& content) const
{
    const auto settings = parse(content);
    if (!settings) return Error(settings.error());
    bool found = false;
    std::vector<JSONMember> kept;
    for (JSONMember& member : settings->members()) {
        const auto others = member.key == hooksKey ? withoutOurs(member.value) : std::nullopt;
        if (!others) {
            kept.push_back(std::move(member));
            continue;
        }
        found = true;
        if (format_.keepsEmptyHooks || !others->members().empty())
            kept.push_back({std::move(member.key), *others});
    }
    if (!found) return Content();
    return serialise(JSONValue::object(kept));
}

HookInstaller::Result<HookInstaller::Findings> JSONHookInstaller::find(const std::string& content,
                                                                       const std::string& helper) const
{
    const auto settings = parse(content);
    if (!settings) return Error(settings.error());
    Findings found;
    for (const JSONMember& member : settings->members()) {
        if (member.key != hooksKey) continue;
        for (const JSONMember& event : member.value.members())
            for (const JSONValue& entry : event.value.elements())
                if (isOurs(entry))
                    found.entries.push_back(quoteJSON(event.key) + ": " +
                                            writeJSON(JSONValue::array(std::array{entry})));
    }

    const JSONValue hooks = settings->find(hooksKey).value_or(JSONValue());
    for (const Event& event : format_.events) {
        bool isPresent = false;
        for (const JSONValue& entry : hooks.find(event.agentName).value_or(JSONValue()).elements())
            for (const std::string& command : ourCommands(entry)) {
                isPresent = true;
                if (!runsHelper(command, helper)) found.callOtherHelper = true;
            }
        if (event.reported == CanonicalEvent::userActed && !isPresent) found.lackReminderHooks = true;
    }
    return found;
}

HookInstaller::Result<JSONValue> JSONHookInstaller::parse(const std::string& content) const
{
    auto parsed = parseJSON(content);
    if (!parsed || !parsed->is(Kind::object)) return unparseable();
    return *parsed;
}

HookInstaller::Result<HookInstaller::Content> JSONHookInstaller::serialise(const JSONValue& settings)
{
    if (writtenSize(settings) >= maxFileSize) return ioError(texts::couldNotSerialize);
    return writeJSON(settings) + "\n";
}

JSONValue JSONHookInstaller::entry(const std::string& command) const
{
    const JSONMember runs = {"command", JSONValue::string(command)};
    if (!format_.hasGroups) return JSONValue::object(std::array{runs});
    const JSONValue hook =
        JSONValue::object(std::array{JSONMember{"type", JSONValue::string("command")}, runs});
    return JSONValue::object(std::array{JSONMember{"matcher", JSONValue::string("")},
                                        JSONMember{"hooks", JSONValue::array(std::array{hook})}});
}

/// The commands of an entry that run a helper of ours.
std::vector<std::string> JSONHookInstaller::ourCommands(const JSONValue& entry) const
{
    std::vector<std::string> commands;
    for (const JSONValue& hook : format_.hasGroups ? elementsOf(entry, "hooks") : std::vector{entry})
        for (const JSONMember& member : hook.members())
            if (member.key == "command" && namesOurHelper(member.value.text()))
                commands.emplace_back(member.value.text());
    return commands;
}

std::vector<JSONValue> JSONHookInstaller::othersIn(const JSONValue& array) const
{
    std::vector<JSONValue> entries = array.elements();
    std::erase_if(entries, [this](const JSONValue& entry) { return isOurs(entry); });
    return entries;
}

/// A "hooks" object without our entries and the arrays that they leave empty; nothing when it has none.
std::optional<JSONValue> JSONHookInstaller::withoutOurs(const JSONValue& hooks) const
{
    bool found = false;
    std::vector<JSONMember> kept;
    for (JSONMember& event : hooks.members()) {
        const auto others = othersIn(event.value);
        if (others.size() == event.value.elements().size()) {
            kept.push_back(std::move(event));
            continue;
        }
        found = true;
        if (!others.empty()) kept.push_back({std::move(event.key), JSONValue::array(others)});
    }
    if (!found) return std::nullopt;
    return JSONValue::object(kept);
}

ClaudeHookInstaller::ClaudeHookInstaller(Collaborators with)
    : JSONHookInstaller(with,
                        {.providerId = claudeProvider,
                         .displayName = "Claude Code",
                         .settingsFile = ".claude/settings.json",
                         .isBeta = false,
                         .hookVersion = 3},
                        {.events = claudeEvents, .hasGroups = true})
{
}

CursorHookInstaller::CursorHookInstaller(Collaborators with)
    : JSONHookInstaller(with,
                        {.providerId = cursorProvider,
                         .displayName = "Cursor",
                         .settingsFile = ".cursor/hooks.json",
                         .isBeta = true,
                         .hookVersion = 1},
                        {.events = cursorEvents, .keepsEmptyHooks = true, .version = "1"})
{
}

}
