// SPDX-License-Identifier: MIT
#pragma once

#include "helper/agent_input.h"
#include "helper/system.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace chimewell {

/// Writes an event URL. Its text is ASCII whatever the values hold: all but letters, digits and `-._~` is
/// percent-encoded, each byte that is not UTF-8 becomes U+FFFD, and NUL is left out.
class EventUrlBuilder {
public:
    /// `provider` is not escaped.
    EventUrlBuilder(CanonicalEvent event, std::string_view provider);

    /// Appends `key`, not escaped, and `value`, cut to `maxValueBytes` at a character's end; an empty value
    /// is left out.
    void add(std::string_view key, std::string_view value);
    std::string text() && { return std::move(text_); }

private:
    std::string text_;
};

/// The event URL for what the agent reported at `now`; nothing if it is no event to the user. What the
/// payload does not say comes from the environment where the agent puts it there too, never from the working
/// folder.
std::optional<std::string> eventUrlFor(const Invocation& invocation, const Payload& payload,
                                       const Environment& environment,
                                       std::chrono::system_clock::time_point now);

}
