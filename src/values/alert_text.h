// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "values/event_payload.h"

#include <optional>
#include <string>

namespace chimewell {

// What alerts say, in no language yet. Banners, speech and the list of recent alerts all take their words
// here.

/// The event's name and, where there is one, the project: "Finished — proj".
Phrase eventTitle(CanonicalEvent event, const std::optional<std::string>& projectLabel);
/// The sender's title as it came, else the event's.
Phrase alertTitle(const EventPayload& payload, bool isReminder);
/// The sender's message as it came, else what the event means.
Phrase alertBody(CanonicalEvent event, const std::optional<std::string>& message);

}
