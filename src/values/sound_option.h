// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

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
inline constexpr std::array<std::string_view, 14> playableSoundNames = {
    "Basso", "Blow", "Bottle", "Frog", "Funk",   "Glass",     "Hero",
    "Morse", "Ping", "Pop",    "Purr", "Sosumi", "Submarine", "Tink",
};

bool isPlayableSound(std::string_view id);

}
