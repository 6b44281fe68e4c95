// SPDX-License-Identifier: MIT
#pragma once

#include "base/time_point.h"
#include "values/canonical_event.h"

#include <optional>
#include <string>

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

}
