// SPDX-License-Identifier: MIT
#include "alerts/alert_audio.h"

#include "base/unicode_text.h"
#include "values/sound_option.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace chimewell {

void SoundPlayer::play(std::string_view id)
{
    if (!isPlayableSound(id)) return;
    auto sound = sounds_.named(id);
    if (!sound) return;

    std::erase_if(active_, [](const auto& started) { return !started->isPlaying(); });
    if (active_.size() >= maxConcurrent) {
        active_.front()->stop();
        active_.erase(active_.begin());
    }
    active_.push_back(std::move(sound));
    active_.back()->play();
}

void VoiceAnnouncer::speak(const Phrase& phrase, const std::optional<std::string>& voiceIdentifier)
{
    const std::string text = translator_.translate(phrase);
    const std::string_view announcement = trimmed(text);
    if (announcement.empty()) return;
    synth_.speak(std::string(announcement), voiceIdentifier);
}

void VoiceAnnouncer::listVoices(std::function<void(std::vector<Voice>)> done) const
{
    const std::string tag = translator_.language();
    synth_.listVoices(
        [code = tag.substr(0, tag.find('-')), done = std::move(done)](std::vector<Voice> voices) {
            const auto speaksIt = [&](const Voice& voice) { return voice.language.starts_with(code); };
            if (std::ranges::any_of(voices, speaksIt))
                std::erase_if(voices, [&](const Voice& voice) { return !speaksIt(voice); });
            std::ranges::stable_sort(voices, {},
                                     [](const Voice& voice) { return std::tie(voice.language, voice.name); });
            done(std::move(voices));
        });
}

void AlertAudio::play(const EventSetting& setting)
{
    sound_.play(setting.soundId);
    if (setting.speak) voice_.speak(setting.phraseToSpeak(), setting.voiceIdentifier);
}

}
