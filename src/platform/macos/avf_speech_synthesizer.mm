// SPDX-License-Identifier: MIT
#include "platform/macos/avf_speech_synthesizer.h"

#include "platform/macos/foundation.h"

#import <AVFAudio/AVFAudio.h>

#include <utility>

namespace chimewell {

struct AvfSpeechSynthesizer::Synthesizer {
    AVSpeechSynthesizer* synthesizer = [[AVSpeechSynthesizer alloc] init];
};

AvfSpeechSynthesizer::AvfSpeechSynthesizer() : synthesizer_(std::make_unique<Synthesizer>()) {}

AvfSpeechSynthesizer::~AvfSpeechSynthesizer() = default;

void AvfSpeechSynthesizer::speak(const std::string& text, const std::optional<std::string>& voiceIdentifier)
{
    AVSpeechUtterance* const utterance = [AVSpeechUtterance speechUtteranceWithString:foundationText(text)];
    utterance.rate = AVSpeechUtteranceDefaultSpeechRate;
    if (voiceIdentifier) {
        AVSpeechSynthesisVoice* const voice =
            [AVSpeechSynthesisVoice voiceWithIdentifier:foundationText(*voiceIdentifier)];
        if (voice) utterance.voice = voice;
    }
    [synthesizer_->synthesizer speakUtterance:utterance];
}

void AvfSpeechSynthesizer::listVoices(std::function<void(std::vector<Voice>)> done)
{
    std::vector<Voice> voices;
    for (AVSpeechSynthesisVoice* const voice in [AVSpeechSynthesisVoice speechVoices])
        voices.push_back({.identifier = utf8(voice.identifier),
                          .name = utf8(voice.name),
                          .language = utf8(voice.language)});
    done(std::move(voices));
}

}
