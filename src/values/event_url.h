// SPDX-License-Identifier: MIT
#pragma once

#include "values/event_payload.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// Reads `chimewell://event?type=…&provider=…`, the one input of the event road. Anything that is
/// not such a URL gives nothing; over-long values are cut, never rejected. Host, path and fragment
/// are ignored. The generic syntax is RFC 3986's, with raw spaces, quotes, brackets and non-ASCII
/// text in the query taken as themselves.
std::optional<EventPayload> parseEventUrl(std::string_view url);

/// The URL of the alert that the user asks for to hear and see one. `uuid` makes it a session of its own.
std::string sampleEventUrl(std::string_view uuid);

inline constexpr std::string_view eventUrlScheme = "chimewell";
/// User-perceived characters that are kept of each value.
inline constexpr std::size_t maxValueCharacters = 512;
/// One of those characters can be megabytes long: bytes that are kept of each value.
inline constexpr std::size_t maxValueBytes = std::size_t{16} << 10;

}
