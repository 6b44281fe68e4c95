// SPDX-License-Identifier: MIT
// What every SpeechSynthesizer does: the fake of the other tests, and the real one with a real
// speech service, whose log says what was spoken.
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/speech/ssip_speech_synthesizer.h"
#include "support/recording_speech.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using Texts = std::vector<std::string>;

const Voice german{.identifier = "German", .name = "German", .language = "de"};

/// A synthesizer and the service behind it: here the fake.
class Service {
public:
    Service() { fake_.voices = {german}; }
    virtual ~Service() = default;
    virtual std::string unavailable() const { return {}; }
    virtual SpeechSynthesizer& synthesizer() { return fake_; }
    /// What was spoken to its end.
    virtual Texts spoken() const
    {
        Texts texts;
        for (const auto& [text, voice] : fake_.spoken)
            texts.push_back(text);
        return texts;
    }

private:
    RecordingSpeech fake_;
};

class RealService : public Service {
public:
    std::string unavailable() const override { return session_.unavailable(); }
    SpeechSynthesizer& synthesizer() override { return synthesizer_; }
    Texts spoken() const override
    {
        std::ifstream log(std::string(std::getenv("XDG_RUNTIME_DIR")) +
                          "/speech-dispatcher/log/speech-dispatcher.log");
        Texts queued;
        std::size_t ended = 0;
        for (std::string line; std::getline(log, line);) {
            if (const auto at = line.find("Queueing message |"); at != std::string::npos)
                queued.push_back(line.substr(at + 18, line.find('|', at + 18) - at - 18));
            if (line.contains("playback thread reporting end")) ++ended;
        }
        queued.resize(std::min(queued.size(), ended));
        return queued;
    }

private:
    PrivateSession session_{{"pulseaudio", "speech-dispatcher"}};
    SsipSpeechSynthesizer synthesizer_{SsipSpeechSynthesizer::Service::ofSession(), "en"};
};

std::unique_ptr<Service> make(const std::string& kind)
{
    if (kind == "Real") return std::make_unique<RealService>();
    return std::make_unique<Service>();
}

class SpeechSynthesizerContract : public ::testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        if (!service->unavailable().empty()) GTEST_SKIP() << service->unavailable();
    }

    const std::unique_ptr<Service> service = make(GetParam());
};

TEST_P(SpeechSynthesizerContract, SpeaksEverythingToItsEndInOrder)
{
    service->synthesizer().speak("one", std::nullopt);
    service->synthesizer().speak("two", "No such voice");
    service->synthesizer().speak("three", "German");
    service->synthesizer().speak("four", std::nullopt);
    const Texts all{"one", "two", "three", "four"};
    waitUntil([&] { return service->spoken().size() == all.size(); }, std::chrono::seconds(90));
    EXPECT_EQ(service->spoken(), all);
}

TEST_P(SpeechSynthesizerContract, ListsEachVoiceOnce)
{
    std::optional<std::vector<Voice>> voices;
    service->synthesizer().listVoices([&](std::vector<Voice> list) { voices = std::move(list); });
    ASSERT_TRUE(waitUntil([&] { return voices.has_value(); }));
    EXPECT_EQ(std::ranges::count(*voices, german), 1);
    for (const Voice& voice : *voices) {
        EXPECT_EQ(std::ranges::count(*voices, voice.identifier, &Voice::identifier), 1) << voice.identifier;
        EXPECT_FALSE(voice.identifier.contains('+')) << voice.identifier;
        EXPECT_FALSE(voice.language.empty()) << voice.identifier;
    }
}

INSTANTIATE_TEST_SUITE_P(Services, SpeechSynthesizerContract, ::testing::Values("Fake", "Real"),
                         [](const auto& kind) { return kind.param; });

}
}
