// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "ports/speech_synthesizer.h"
#include "ports/system_sounds.h"
#include "ports/translator.h"
#include "values/app_settings.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// Plays alert sounds, a few at a time: the newest is always heard.
class SoundPlayer {
public:
    explicit SoundPlayer(SystemSounds& sounds) : sounds_(sounds) {}

    /// Starts the sound. Stops the oldest one if `maxConcurrent` are playing. An `id` that is not exactly the
    /// name of a playable sound plays nothing.
    void play(std::string_view id);

    static constexpr std::size_t maxConcurrent = 4;

private:
    SystemSounds& sounds_;
    std::vector<std::unique_ptr<Sound>> active_; ///< Started and possibly still playing, oldest first.
};

/// Speaks announcements in order, none cut off by the next.
class VoiceAnnouncer {
public:
    VoiceAnnouncer(SpeechSynthesizer& synth, const Translator& translator)
        : synth_(synth),
          translator_(translator)
    {
    }

    /// Queues the phrase, trimmed; a blank one says nothing.
    void speak(const Phrase& phrase, const std::optional<std::string>& voiceIdentifier);

    /// Hands over the installed voices of the language that phrases are spoken in, or all of them if none
    /// speaks it, by language and then by name. Possibly later, and not after the synthesizer is destroyed.
    void listVoices(std::function<void(std::vector<Voice>)> done) const;

private:
    SpeechSynthesizer& synth_;
    const Translator& translator_;
};

/// What is heard of an event: its sound and its spoken phrase.
class AlertAudio {
public:
    AlertAudio(SoundPlayer& sound, VoiceAnnouncer& voice) : sound_(sound), voice_(voice) {}

    /// As the event is set up, enabled or not.
    void play(const EventSetting& setting);

private:
    SoundPlayer& sound_;
    VoiceAnnouncer& voice_;
};

}
