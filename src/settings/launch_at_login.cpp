// SPDX-License-Identifier: MIT
#include "settings/launch_at_login.h"

namespace chimewell {

std::optional<std::string> setLaunchAtLogin(LoginItem& item, bool wanted)
{
    if (item.isEnabled() == wanted) return std::nullopt;
    const auto changed = wanted ? item.registerItem() : item.unregisterItem();
    if (changed) return std::nullopt;
    return "Launch at login could not be changed: " + changed.error();
}

}
