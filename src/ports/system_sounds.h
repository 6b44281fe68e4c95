// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

namespace chimewell {

/// A sound that can be played once. Destroying it stops it.
class Sound {
public:
    virtual ~Sound() = default;
    virtual void play() = 0;
    virtual void stop() = 0;
    /// True from `play` until the sound has ended, was stopped or failed.
    virtual bool isPlaying() const = 0;
};

/// The alert sounds by name.
class SystemSounds {
public:
    virtual ~SystemSounds() = default;
    /// A new object for each call, or null if no sound has that name.
    virtual std::unique_ptr<Sound> named(std::string_view name) = 0;
};

}
