// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <vector>

namespace chimewell::test::mac {

/// One sound that was started.
struct PlayedSound {
    std::string name;
    bool playing = false;
    bool isShared = false; ///< It is the one object that the system keeps for the name.
};

struct SoundRecord {
    std::set<std::string> existing{"Basso", "Blow", "Bottle", "Frog", "Funk", "Glass", "Tink"};
    std::vector<PlayedSound> played; ///< In the order of their starts.
};

SoundRecord& sounds();

}
