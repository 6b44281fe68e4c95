// SPDX-License-Identifier: MIT
#include "presentation/voice_choices.h"

#include <algorithm>

namespace chimewell {

std::vector<Voice> voiceChoices(std::vector<Voice> voices, const std::optional<std::string>& stored)
{
    if (stored && std::ranges::find(voices, *stored, &Voice::identifier) == voices.end())
        voices.push_back({.identifier = *stored, .name = *stored, .language = {}});
    return voices;
}

}
