// SPDX-License-Identifier: MIT
#pragma once

#include "values/voice.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chimewell {

/// The system's speech service. If there is none, nothing is spoken and nothing is reported.
class SpeechSynthesizer {
public:
    virtual ~SpeechSynthesizer() = default;
    /// Queues `text`, which is safe to speak (base/readable_text.h), at the service's normal rate. The
    /// default voice speaks if `voiceIdentifier` is absent or not installed.
    virtual void speak(const std::string& text, const std::optional<std::string>& voiceIdentifier) = 0;
    /// Calls `done` with every installed voice, possibly later; with an empty list if there is no service.
    /// Never calls it after the synthesizer was destroyed.
    virtual void listVoices(std::function<void(std::vector<Voice>)> done) = 0;
};

}
