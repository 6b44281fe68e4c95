// SPDX-License-Identifier: MIT
#include "values/sound_option.h"

#include "base/translatable.h"

#include <algorithm>

namespace chimewell {

namespace {

constexpr auto silentName = translatable("Silent");

}

const std::vector<SoundOption>& SoundOption::all()
{
    static const std::vector<SoundOption> options = [] {
        std::vector<SoundOption> list{{std::string(silentSoundId), std::string(silentName)}};
        for (const std::string_view name : playableSoundNames)
            list.push_back({std::string(name), std::string(name)});
        return list;
    }();
    return options;
}

bool isPlayableSound(std::string_view id)
{
    return std::ranges::find(playableSoundNames, id) != playableSoundNames.end();
}

}
