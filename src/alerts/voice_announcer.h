// SPDX-License-Identifier: MIT
#pragma once

#include "ports/speech_synthesizer.h"
#include "ports/user_locale.h"
#include "values/voice.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// Speaks announcements in order, none cut off by the next.
class VoiceAnnouncer {
public:
    VoiceAnnouncer(SpeechSynthesizer& synth, const UserLocale& locale) : synth_(synth), locale_(locale) {}

    /// Queues the trimmed text; a blank one says nothing.
    void speak(std::string_view text, const std::optional<std::string>& voiceIdentifier);

    /// The voices of the user's language, all of them if it has none, by language and then by name.
    std::vector<Voice> voices(std::vector<Voice> installed) const;

private:
    SpeechSynthesizer& synth_;
    const UserLocale& locale_;
};

}
