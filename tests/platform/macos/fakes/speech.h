// SPDX-License-Identifier: MIT
#pragma once

#include "values/voice.h"

#include <string>
#include <vector>

namespace chimewell::test::mac {

/// One announcement that was handed to a synthesizer.
struct Utterance {
    std::string text;
    std::string voice; ///< Its identifier; empty for the system's own choice.
    float rate = 0;
    int synthesizer = 0; ///< Which one, counted from 1.
    bool operator==(const Utterance&) const = default;
};

struct SpeechRecord {
    std::vector<Voice> installed;
    std::vector<Utterance> spoken;
    int synthesizers = 0; ///< How many were made.
};

SpeechRecord& speech();

/// The rate that the system calls its default.
inline constexpr float defaultSpeechRate = 0.5F;

}
