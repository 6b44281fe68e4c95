// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"
#include "base/text.h"
#include "values/canonical_event.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// One received event. An optional text is never present and empty.
struct EventPayload {
    CanonicalEvent type = CanonicalEvent::finished;
    std::string provider; ///< One of `knownProviders`.
    std::optional<std::string> cwd = std::nullopt;
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> title = std::nullopt; ///< Replaces the composed banner title.
    std::optional<std::string> message = std::nullopt;
    std::optional<std::string> term = std::nullopt; ///< See `findTerminalApplication`.
    bool isTest = false;                            ///< Alerts, but is not remembered.
    std::optional<Date> timestamp = std::nullopt;   ///< By the sender's clock.

    /// The key under which the session is reminded and settled.
    std::string sessionKey() const;
    /// The name of the working folder: the last component of `cwd`. Nothing for "/" alone.
    std::optional<std::string> projectLabel() const;
    bool operator==(const EventPayload&) const = default;
};

/// Stands for the session of events that carry none.
inline constexpr char noSessionKey[] = "__no_session";

/// Reads `chimewell://event?type=…&provider=…`, the one input of the event road. Anything that is
/// not such a URL gives nothing; over-long values are cut, never rejected. Host, path and fragment
/// are ignored. The generic syntax is RFC 3986's, with raw spaces, quotes, brackets and non-ASCII
/// text in the query taken as themselves.
std::optional<EventPayload> parseEventUrl(std::string_view url);

/// The URL of the alert that the user asks for to hear and see one. `uuid` makes it a session of its own.
std::string sampleEventUrl(std::string_view uuid);

inline constexpr std::string_view eventUrlScheme = "chimewell";
/// How the helper and the sample begin a URL; the event's raw name follows.
inline constexpr std::string_view eventUrlBeginning = "chimewell://event?type=";
/// User-perceived characters that are kept of each value.
inline constexpr std::size_t maxValueCharacters = 512;
/// One of those characters can be megabytes long: bytes that are kept of each value.
inline constexpr std::size_t maxValueBytes = std::size_t{16} << 10;

// What alerts say, in no language yet. Banners, speech and the list of recent alerts all take their words
// here.

/// The event's name and, where there is one, the project: "Finished — proj".
Phrase eventTitle(CanonicalEvent event, const std::optional<std::string>& projectLabel);
/// The sender's title as it came, else the event's.
Phrase alertTitle(const EventPayload& payload, bool isReminder);
/// The sender's message as it came, else what the event means.
Phrase alertBody(CanonicalEvent event, const std::optional<std::string>& message);

}
