// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

namespace chimewell {

/// One playing, or not yet started, of a sound. Destroying it ends what is still to be heard.
class Sound {
public:
    virtual ~Sound() = default;
    virtual void play() = 0;
    virtual void stop() = 0;
    /// True from `play` until the last sample was heard, the sound was stopped or could not be played.
    virtual bool isPlaying() const = 0;
};

/// The alert sounds by name.
class SystemSounds {
public:
    virtual ~SystemSounds() = default;
    /// A fresh sound, or null when there is none of that name.
    virtual std::unique_ptr<Sound> named(std::string_view name) = 0;
};

}
