// SPDX-License-Identifier: MIT
// Whatever the file: no crash, and settings that were read once come back the same from what is written.
#include "values/app_settings.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using namespace chimewell;

/// Files hold whole seconds.
void dropFractions(AppSettings& settings)
{
    for (auto& provider : settings.providers)
        if (provider.installedAt)
            provider.installedAt = std::chrono::floor<std::chrono::seconds>(*provider.installedAt);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto settings = decodeSettings({reinterpret_cast<const char*>(data), size});
    if (!settings) return 0;
    settings->normalize();
    const AppSettings once = *settings;
    settings->normalize();
    if (*settings != once) std::abort();
    dropFractions(*settings);
    if (decodeSettings(encodeSettings(*settings)) != settings) std::abort();
    return 0;
}
