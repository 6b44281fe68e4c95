// SPDX-License-Identifier: MIT
#include "alerts/voice_announcer.h"

#include "base/white_space.h"

#include <algorithm>
#include <tuple>

namespace chimewell {

void VoiceAnnouncer::speak(const Phrase& phrase, const std::optional<std::string>& voiceIdentifier)
{
    const std::string text = translator_.translate(phrase);
    const std::string_view announcement = trimmed(text);
    if (announcement.empty()) return;
    synth_.speak(std::string(announcement), voiceIdentifier);
}

std::vector<Voice> VoiceAnnouncer::voices(std::vector<Voice> installed) const
{
    const std::string tag = translator_.language();
    const std::string code = tag.substr(0, tag.find('-'));
    const auto speaksIt = [&](const Voice& voice) { return voice.language.starts_with(code); };
    if (std::ranges::any_of(installed, speaksIt))
        std::erase_if(installed, [&](const Voice& voice) { return !speaksIt(voice); });
    std::ranges::stable_sort(installed, {},
                             [](const Voice& voice) { return std::tie(voice.language, voice.name); });
    return installed;
}

}
