// SPDX-License-Identifier: MIT
#pragma once

#include "ports/speech_synthesizer.h"
#include "ports/translator.h"
#include "values/voice.h"

#include <optional>
#include <string>
#include <vector>

namespace chimewell {

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

    /// The voices of the language that phrases are spoken in, all of them if it has none, by language and
    /// then by name.
    std::vector<Voice> voices(std::vector<Voice> installed) const;

private:
    SpeechSynthesizer& synth_;
    const Translator& translator_;
};

}
