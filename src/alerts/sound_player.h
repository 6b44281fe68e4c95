// SPDX-License-Identifier: MIT
#pragma once

#include "ports/system_sounds.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace chimewell {

/// Plays alert sounds, a few at a time: the newest is always heard.
class SoundPlayer {
public:
    explicit SoundPlayer(SystemSounds& sounds) : sounds_(sounds) {}

    /// Starts the sound; the oldest one ends if `maxConcurrent` are playing. Anything that is not the
    /// exact name of a playable sound plays nothing.
    void play(std::string_view id);

    static constexpr std::size_t maxConcurrent = 4;

private:
    SystemSounds& sounds_;
    std::vector<std::unique_ptr<Sound>> active_; ///< Started and possibly still playing, oldest first.
};

}
