// SPDX-License-Identifier: MIT
#pragma once

#include "base/time_point.h"

#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

/// The date in UTC to whole seconds, for example 2026-03-01T09:05:00Z (ISO 8601, RFC 3339).
std::string iso8601(Date date);

/// Reads that form, also with fractional seconds and with an offset such as +02:00 or +0200.
std::optional<Date> parseIso8601(std::string_view text);

}
