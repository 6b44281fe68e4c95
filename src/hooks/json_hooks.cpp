// SPDX-License-Identifier: MIT
#include "hooks/json_hooks.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace chimewell {

namespace {

using Kind = JSONValue::Kind;

constexpr std::string_view hooksKey = "hooks";

std::vector<JSONValue> othersIn(const JSONValue& array, const IsOurHook& isOurs)
{
    std::vector<JSONValue> entries = array.elements();
    std::erase_if(entries, isOurs);
    return entries;
}

/// Takes our entries out of one "hooks" object. Nothing when there are none.
std::optional<JSONValue> withoutOurs(const JSONValue& hooks, const IsOurHook& isOurs)
{
    bool found = false;
    std::vector<JSONMember> kept;
    for (JSONMember& event : hooks.members()) {
        const auto all = event.value.elements();
        auto others = othersIn(event.value, isOurs);
        if (others.size() == all.size()) {
            kept.push_back(std::move(event));
            continue;
        }
        found = true;
        if (!others.empty()) kept.push_back({std::move(event.key), JSONValue::array(others)});
    }
    if (!found) return std::nullopt;
    return JSONValue::object(kept);
}

}

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

std::optional<JSONValue> withOurHooks(const JSONValue& settings, std::span<const WantedHook> wanted,
                                      const IsOurHook& isOurs)
{
    JSONValue hooks = settings.find(hooksKey).value_or(JSONValue::object({}));
    if (!hooks.is(Kind::object)) return std::nullopt;
    for (const WantedHook& hook : wanted) {
        const JSONValue array = hooks.find(hook.event).value_or(JSONValue::array({}));
        if (!array.is(Kind::array)) return std::nullopt;
        auto entries = othersIn(array, isOurs);
        entries.push_back(hook.entry);
        hooks = withMember(hooks, hook.event, JSONValue::array(entries));
    }
    return withMember(settings, hooksKey, hooks);
}

std::optional<JSONValue> withoutOurHooks(const JSONValue& settings, const IsOurHook& isOurs,
                                         EmptiedHooks emptied)
{
    bool found = false;
    std::vector<JSONMember> kept;
    for (JSONMember& member : settings.members()) {
        const auto others = member.key == hooksKey ? withoutOurs(member.value, isOurs) : std::nullopt;
        if (!others) {
            kept.push_back(std::move(member));
            continue;
        }
        found = true;
        if (emptied == EmptiedHooks::stay || !others->members().empty())
            kept.push_back({std::move(member.key), *others});
    }
    if (!found) return std::nullopt;
    return JSONValue::object(kept);
}

std::vector<JSONValue> ourHooksOf(const JSONValue& settings, std::string_view event, const IsOurHook& isOurs)
{
    const JSONValue hooks = settings.find(hooksKey).value_or(JSONValue());
    std::vector<JSONValue> entries = hooks.find(event).value_or(JSONValue()).elements();
    std::erase_if(entries, std::not_fn(isOurs));
    return entries;
}

std::vector<FoundHook> findOurHooks(const JSONValue& settings, const IsOurHook& isOurs)
{
    std::vector<FoundHook> found;
    for (const JSONMember& member : settings.members()) {
        if (member.key != hooksKey) continue;
        for (const JSONMember& event : member.value.members())
            for (const JSONValue& entry : event.value.elements())
                if (isOurs(entry)) found.push_back({event.key, entry});
    }
    return found;
}

}
