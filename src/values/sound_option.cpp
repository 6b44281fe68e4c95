// SPDX-License-Identifier: MIT
#include "values/sound_option.h"

#include "values/texts.h"

#include <algorithm>

namespace chimewell {

const std::vector<SoundOption>& SoundOption::all()
{
    static const std::vector<SoundOption> options = [] {
        std::vector<SoundOption> list{{std::string(silentSoundId), texts::silent}};
        for (const std::string_view name : playableSoundNames)
            list.push_back({std::string(name), name});
        return list;
    }();
    return options;
}

bool isPlayableSound(std::string_view id)
{
    return std::ranges::find(playableSoundNames, id) != playableSoundNames.end();
}

}
