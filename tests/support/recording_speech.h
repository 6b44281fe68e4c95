// SPDX-License-Identifier: MIT
#pragma once

#include "ports/speech_synthesizer.h"

#include <utility>

namespace chimewell::test {

class RecordingSpeech : public SpeechSynthesizer {
public:
    using Utterance = std::pair<std::string, std::optional<std::string>>; ///< Text and voice.

    void speak(const std::string& text, const std::optional<std::string>& voiceIdentifier) override
    {
        spoken.emplace_back(text, voiceIdentifier);
    }
    void listVoices(std::function<void(std::vector<Voice>)> done) override { done(voices); }

    std::vector<Utterance> spoken;
    std::vector<Voice> voices;
};

}
