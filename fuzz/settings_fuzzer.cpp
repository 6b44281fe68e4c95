// SPDX-License-Identifier: MIT
// Whatever the file: settings that were read once come back the same from what is written.
#include "fuzzing.h"
#include "values/app_settings.h"

#include <chrono>

namespace chimewell::fuzz {

void check(std::string_view bytes)
{
    auto settings = decodeSettings(bytes);
    if (!settings) return;
    settings->normalize();
    const AppSettings once = *settings;
    settings->normalize();
    require(*settings == once);
    for (auto& provider : settings->providers) // files hold whole seconds
        if (provider.installedAt)
            provider.installedAt = std::chrono::floor<std::chrono::seconds>(*provider.installedAt);
    require(decodeSettings(encodeSettings(*settings)) == settings);
}

}
