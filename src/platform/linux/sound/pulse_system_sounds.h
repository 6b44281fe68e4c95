// SPDX-License-Identifier: MIT
#pragma once

#include "ports/system_sounds.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace chimewell {

class PulseConnection;
struct WavFile;

/// Plays the WAV files of a folder through the desktop's sound server (PulseAudio, or PipeWire in its place).
/// A file is read once, when it is first asked for. Without a server that answers, a sound ends unheard
/// within a few seconds, and the next one tries again. Qt's event loop must run on GLib, because the sound
/// library's events come from there; otherwise there is no sound.
class PulseSystemSounds : public SystemSounds {
public:
    /// The sound NAME is `folder`/NAME.wav.
    explicit PulseSystemSounds(std::filesystem::path folder);
    ~PulseSystemSounds() override;

    /// The sound may outlive this object.
    std::unique_ptr<Sound> named(std::string_view name) override;

private:
    std::filesystem::path folder_;
    std::map<std::string, std::shared_ptr<const WavFile>, std::less<>> files_;
    std::shared_ptr<PulseConnection> connection_;
};

}
