// SPDX-License-Identifier: MIT
#pragma once

#include "helper/system.h"

#include <string_view>

namespace chimewell {

/// Hands `url` to the application. With `mayStart` an application that is not running is started for it,
/// unless the user has quit it. Returns at the deadline at the latest where the system knows time limits;
/// what takes longer is left to the system, or to a detached process, which ends by itself and shares none of
/// our streams. The application gets nothing of our environment.
void deliver(std::string_view url, bool mayStart, const Environment& environment, Deadline deadline);

}
