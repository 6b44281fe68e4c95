// SPDX-License-Identifier: MIT
#include "settings/launch_at_login.h"

#include "values/texts.h"

namespace chimewell {

std::optional<Phrase> setLaunchAtLogin(LoginItem& item, bool wanted)
{
    if (item.isEnabled() == wanted) return std::nullopt;
    const auto changed = wanted ? item.registerItem() : item.unregisterItem();
    if (changed) return std::nullopt;
    return Phrase(texts::couldNotLaunchAtLogin, {changed.error()});
}

}
