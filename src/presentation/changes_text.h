// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_installer.h"

#include <string>
#include <vector>

namespace chimewell {

/// The entries one below the other, to be read. Where some go and others come, each line begins with "- " or
/// "+ "; otherwise the lines are exactly those of the file.
std::string changesText(const std::vector<HookChange>& changes);

}
