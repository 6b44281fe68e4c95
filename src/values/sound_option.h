// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "values/texts.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// One choice of the sound pickers.
struct SoundOption {
    std::string id; ///< What the settings store.
    Phrase displayName;
    bool operator==(const SoundOption&) const = default;

    /// The silent choice, then every playable name.
    static const std::vector<SoundOption>& all();
};

inline constexpr std::string_view silentSoundId = "__silent__";

/// The alert sounds in alphabetical order. macOS has them built in; elsewhere they come with us.
inline constexpr auto playableSoundNames = std::to_array<std::string_view>({
    "Basso",
    "Blow",
    "Bottle",
    "Frog",
    "Funk",
    "Glass",
    "Hero",
    "Morse",
    "Ping",
    "Pop",
    "Purr",
    "Sosumi",
    "Submarine",
    "Tink",
});

constexpr bool isPlayableSound(std::string_view id)
{
    return std::ranges::find(playableSoundNames, id) != playableSoundNames.end();
}

inline const std::vector<SoundOption>& SoundOption::all()
{
    static const std::vector<SoundOption> options = [] {
        std::vector<SoundOption> list{{std::string(silentSoundId), texts::silent}};
        for (const std::string_view name : playableSoundNames)
            list.push_back({std::string(name), name});
        return list;
    }();
    return options;
}

}
