// SPDX-License-Identifier: MIT
#pragma once

#include "values/canonical_event.h"

#include <optional>
#include <string>

namespace chimewell {

/// The event's display name and, where there is one, the project: "Finished — proj".
std::string eventTitle(CanonicalEvent event, const std::optional<std::string>& projectLabel);

}
