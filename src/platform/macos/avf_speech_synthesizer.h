// SPDX-License-Identifier: MIT
#pragma once

#include "ports/speech_synthesizer.h"

#include <memory>

namespace chimewell {

/// Speech by AVSpeechSynthesizer, which queues by itself. What is queued falls silent with this object.
class AvfSpeechSynthesizer final : public SpeechSynthesizer {
public:
    AvfSpeechSynthesizer();
    ~AvfSpeechSynthesizer() override;

    void speak(const std::string& text, const std::optional<std::string>& voiceIdentifier) override;
    /// Answers before it returns.
    void listVoices(std::function<void(std::vector<Voice>)> done) override;

private:
    struct Synthesizer;
    std::unique_ptr<Synthesizer> synthesizer_;
};

}
