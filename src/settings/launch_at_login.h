// SPDX-License-Identifier: MIT
#pragma once

#include "ports/login_item.h"

#include <optional>

namespace chimewell {

/// Makes the system start us at log-in, or not. Returns a message for the user when that failed;
/// nothing when it worked or was so already.
std::optional<Phrase> setLaunchAtLogin(LoginItem& item, bool wanted);

}
