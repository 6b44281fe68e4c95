// SPDX-License-Identifier: MIT
#include "alerts/sound_player.h"

#include "values/sound_option.h"

#include <utility>

namespace chimewell {

void SoundPlayer::play(std::string_view id)
{
    if (!isPlayableSound(id)) return;
    auto sound = sounds_.named(id);
    if (!sound) return;

    std::erase_if(active_, [](const auto& started) { return !started->isPlaying(); });
    if (active_.size() >= maxConcurrent) {
        active_.front()->stop();
        active_.erase(active_.begin());
    }
    active_.push_back(std::move(sound));
    active_.back()->play();
}

}
