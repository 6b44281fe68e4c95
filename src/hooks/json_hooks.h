// SPDX-License-Identifier: MIT
#pragma once

#include "json/json_value.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

// An agent's file in JSON holds its hooks as {"hooks": {EVENT: [ENTRY, …], …}} among other members. Keys may
// be repeated; agents read the last one.

/// The entry that we want in the array of an event.
struct WantedHook {
    std::string_view event;
    JSONValue entry;
};

/// Whether an entry of an array is ours.
using IsOurHook = std::function<bool(const JSONValue& entry)>;

/// `object` with the value of its last member of that key replaced, or with a new member at the end.
JSONValue withMember(const JSONValue& object, std::string_view key, const JSONValue& value);

/// `settings`, an object, with our entries taken out of the wanted events' arrays and the wanted ones at
/// their ends. Nothing when "hooks" or one of those arrays is of another type.
std::optional<JSONValue> withOurHooks(const JSONValue& settings, std::span<const WantedHook> wanted,
                                      const IsOurHook& isOurs);

/// What becomes of a "hooks" member that lost its last event.
enum class EmptiedHooks : std::uint8_t { stay, go };

/// `settings` without our entries, and without the event arrays that they leave empty. What is not of
/// the expected type is passed over. Nothing when there are none of ours.
std::optional<JSONValue> withoutOurHooks(const JSONValue& settings, const IsOurHook& isOurs,
                                         EmptiedHooks emptied);

/// Our entries in the array of an event that the agent reads.
std::vector<JSONValue> ourHooksOf(const JSONValue& settings, std::string_view event, const IsOurHook& isOurs);

/// An entry of ours and the event it stands under.
struct FoundHook {
    std::string event;
    JSONValue entry;
};

/// Our entries in the order of the file, those that the agent does not read included.
std::vector<FoundHook> findOurHooks(const JSONValue& settings, const IsOurHook& isOurs);

}
