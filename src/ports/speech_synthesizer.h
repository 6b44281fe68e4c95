// SPDX-License-Identifier: MIT
#pragma once

#include "values/voice.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chimewell {

/// The desktop's speech service. Without one, nothing is said and nothing is reported.
class SpeechSynthesizer {
public:
    virtual ~SpeechSynthesizer() = default;
    /// Speaks `text`, which is readable (base/readable_text.h), at the service's normal rate, after whatever
    /// was queued before. A voice that is not installed counts as none: the default voice speaks.
    virtual void speak(const std::string& text, const std::optional<std::string>& voiceIdentifier) = 0;
    /// Hands over every installed voice, possibly later; an empty list when there is no service.
    /// Not called any more once the synthesizer is destroyed.
    virtual void listVoices(std::function<void(std::vector<Voice>)> done) = 0;
};

}
