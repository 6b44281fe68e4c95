// SPDX-License-Identifier: MIT
#include "hooks/hook_installers.h"

#include <algorithm>

namespace chimewell {

HookInstaller* HookInstallers::find(std::string_view providerId) const
{
    const auto found = std::ranges::find(all_, providerId, &HookInstaller::providerId);
    return found == all_.end() ? nullptr : *found;
}

}
