// SPDX-License-Identifier: MIT
#pragma once

#include "ports/speech_synthesizer.h"
#include "ports/system_sounds.h"

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {

/// Remembers which sounds were played, in order, and which of them are still heard.
class RecordingSounds : public SystemSounds {
public:
    struct Played {
        std::string name;
        bool playing = false;
    };

    std::unique_ptr<chimewell::Sound> named(std::string_view name) override
    {
        if (missing.contains(std::string(name))) return nullptr;
        return std::make_unique<Recorded>(std::string(name), *this);
    }
    void finishAll()
    {
        for (const auto& sound : played)
            sound->playing = false;
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> list;
        for (const auto& sound : played)
            list.push_back(sound->name);
        return list;
    }

    std::vector<std::shared_ptr<Played>> played;
    std::set<std::string> missing;

private:
    class Recorded : public chimewell::Sound {
    public:
        Recorded(std::string name, RecordingSounds& sounds)
            : state_(std::make_shared<Played>(std::move(name))),
              sounds_(sounds)
        {
        }
        void play() override
        {
            state_->playing = true;
            sounds_.played.push_back(state_);
        }
        void stop() override { state_->playing = false; }
        bool isPlaying() const override { return state_->playing; }

    private:
        std::shared_ptr<Played> state_;
        RecordingSounds& sounds_;
    };
};

/// Remembers what was spoken.
class RecordingSpeech : public SpeechSynthesizer {
public:
    using Utterance = std::pair<std::string, std::optional<std::string>>; ///< Text and voice.

    void speak(const std::string& text, const std::optional<std::string>& voiceIdentifier) override
    {
        spoken.emplace_back(text, voiceIdentifier);
    }
    void listVoices(std::function<void(std::vector<Voice>)> done) override { done(voices); }

    std::vector<Utterance> spoken;
    std::vector<Voice> voices;
};

}
