// SPDX-License-Identifier: MIT
#include "values/temporary_location.h"

#include <algorithm>

namespace chimewell {

bool isTemporaryLocation(const std::filesystem::path& program)
{
    const auto has = [&](const char* folder) { return std::ranges::find(program, folder) != program.end(); };
    return has("AppTranslocation") || (program.native().starts_with("/Volumes/") && !has("Applications"));
}

}
