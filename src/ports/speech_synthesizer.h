// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chimewell {

/// A voice of the system's speech service.
struct Voice {
    std::string identifier; ///< What the settings store.
    std::string name;
    std::string language; ///< BCP 47 tag, for example en-US.
    bool operator==(const Voice&) const = default;
};

/// The system's speech service. If there is none, nothing is spoken and nothing is reported.
class SpeechSynthesizer {
public:
    virtual ~SpeechSynthesizer() = default;
    /// Queues `text`, which is safe to speak (base/unicode_text.h), at the service's normal rate. The
    /// default voice speaks if `voiceIdentifier` is absent or not installed.
    virtual void speak(const std::string& text, const std::optional<std::string>& voiceIdentifier) = 0;
    /// Calls `done` with every installed voice, possibly later; with an empty list if there is no service.
    /// Never calls it after the synthesizer was destroyed.
    virtual void listVoices(std::function<void(std::vector<Voice>)> done) = 0;
};

}
