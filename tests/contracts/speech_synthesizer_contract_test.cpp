// SPDX-License-Identifier: MIT
// What every SpeechSynthesizer does: the fake of the other tests, and the real one with a real
// speech service, whose log says what was spoken.
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/speech/ssip_speech_synthesizer.h"
#include "support/recording_audio.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using Texts = std::vector<std::string>;

const Voice german{.identifier = "German", .name = "German", .language = "de"};

class SpeechSynthesizerContract : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override
    {
        fake.voices = {german};
        if (isReal) session.emplace(std::vector<std::string>{"pulseaudio", "speech-dispatcher"});
        if (session && !session->unavailable().empty()) GTEST_SKIP() << session->unavailable();
        if (isReal) real.emplace(SsipSpeechSynthesizer::Service::ofSession(), "en");
    }
    SpeechSynthesizer& synthesizer() { return real ? static_cast<SpeechSynthesizer&>(*real) : fake; }
    /// What was spoken to its end.
    Texts spoken() const
    {
        Texts texts;
        for (const auto& [text, voice] : fake.spoken)
            texts.push_back(text);
        if (!isReal) return texts;
        std::ifstream log(std::string(std::getenv("XDG_RUNTIME_DIR")) +
                          "/speech-dispatcher/log/speech-dispatcher.log");
        std::size_t ended = 0;
        for (std::string line; std::getline(log, line);) {
            if (const auto at = line.find("Queueing message |"); at != std::string::npos)
                texts.push_back(line.substr(at + 18, line.find('|', at + 18) - at - 18));
            if (line.contains("playback thread reporting end")) ++ended;
        }
        texts.resize(std::min(texts.size(), ended));
        return texts;
    }

private:
    const bool isReal = GetParam();
    std::optional<PrivateSession> session;
    std::optional<SsipSpeechSynthesizer> real;
    RecordingSpeech fake;
};

TEST_P(SpeechSynthesizerContract, SpeaksEverythingToItsEndInOrder)
{
    synthesizer().speak("one", std::nullopt);
    synthesizer().speak("two", "No such voice");
    synthesizer().speak("three", "German");
    synthesizer().speak("four", std::nullopt);
    const Texts all{"one", "two", "three", "four"};
    waitUntil([&] { return spoken().size() == all.size(); }, std::chrono::seconds(90));
    EXPECT_EQ(spoken(), all);
}

TEST_P(SpeechSynthesizerContract, ListsEachVoiceOnce)
{
    std::optional<std::vector<Voice>> voices;
    synthesizer().listVoices([&](std::vector<Voice> list) { voices = std::move(list); });
    ASSERT_TRUE(waitUntil([&] { return voices.has_value(); }));
    EXPECT_EQ(std::ranges::count(*voices, german), 1);
    for (const Voice& voice : *voices) {
        EXPECT_EQ(std::ranges::count(*voices, voice.identifier, &Voice::identifier), 1) << voice.identifier;
        EXPECT_FALSE(voice.identifier.contains('+')) << voice.identifier;
        EXPECT_FALSE(voice.language.empty()) << voice.identifier;
    }
}

INSTANTIATE_TEST_SUITE_P(Services, SpeechSynthesizerContract, ::testing::Bool(),
                         [](const auto& isReal) { return isReal.param ? "Real" : "Fake"; });

}
}
