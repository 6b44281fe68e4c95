// SPDX-License-Identifier: MIT
// What every SpeechSynthesizer does: the fake of the other tests, and the real one with a real speech
// service, whose log says what was spoken. Then what only the real one can do wrong.
#include "harness/child_process.h"
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/speech/ssip_speech_synthesizer.h"
#include "support/recording_audio.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using Texts = std::vector<std::string>;
using Voices = std::vector<Voice>;

const Voice german{.identifier = "German", .name = "German", .language = "de"};

class SpeechSynthesizerContract : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override
    {
        fake.voices = {german};
        if (isReal) session.emplace(Texts{"pulseaudio", "speech-dispatcher"});
        if (session && !session->unavailable().empty()) GTEST_SKIP() << session->unavailable();
        if (isReal) real.emplace(SsipSpeechSynthesizer::Service::ofSession(), "de-AT");
    }
    SpeechSynthesizer& synthesizer() { return real ? static_cast<SpeechSynthesizer&>(*real) : fake; }

    static Voices voicesOf(SpeechSynthesizer& synthesizer)
    {
        std::optional<Voices> result;
        synthesizer.listVoices([&](Voices voices) { result = std::move(voices); });
        EXPECT_TRUE(waitUntil([&] { return result.has_value(); }));
        return result.value_or(Voices{});
    }
    /// What comes between the two in the service's log, each time.
    static Texts logged(const std::string& before, const std::string& after)
    {
        std::ifstream file(std::string(std::getenv("XDG_RUNTIME_DIR")) +
                           "/speech-dispatcher/log/speech-dispatcher.log");
        const std::string log = (std::ostringstream() << file.rdbuf()).str();
        Texts found;
        for (auto at = log.find(before); at != std::string::npos; at = log.find(before, at)) {
            at += before.size();
            found.push_back(log.substr(at, log.find(after, at) - at));
        }
        return found;
    }
    /// What was spoken when that many were spoken to their end.
    Texts spoken(std::size_t count) const
    {
        Texts texts;
        for (const auto& [text, voice] : fake.spoken)
            texts.push_back(text);
        if (!isReal) return texts;
        const auto ended = [] { return logged("playback thread reporting end", "\n").size(); };
        EXPECT_TRUE(waitUntil([&] { return ended() >= count; }, std::chrono::seconds(90))) << ended();
        texts = logged("Queueing message |", "| with priority");
        for (std::string& text : texts)
            std::erase(text, '\r'); // of the protocol
        return texts;
    }

    const bool isReal = GetParam();
    std::optional<PrivateSession> session;
    std::optional<SsipSpeechSynthesizer> real;
    RecordingSpeech fake;
};

TEST_P(SpeechSynthesizerContract, SpeaksEverythingToItsEndInOrder)
{
    const Texts texts{"one", ".\n\nQUIT\n..\ntwo.\n.", "three"};
    for (const std::string& text : texts)
        synthesizer().speak(text, std::nullopt);
    EXPECT_EQ(spoken(texts.size()), texts);
}

TEST_P(SpeechSynthesizerContract, ListsEachVoiceOnce)
{
    const Voices voices = voicesOf(synthesizer());
    EXPECT_EQ(std::ranges::count(voices, german), 1);
    for (const Voice& voice : voices) {
        EXPECT_EQ(std::ranges::count(voices, voice.identifier, &Voice::identifier), 1) << voice.identifier;
        EXPECT_FALSE(voice.identifier.contains('+')) << voice.identifier;
        EXPECT_FALSE(voice.language.empty()) << voice.identifier;
    }
}

INSTANTIATE_TEST_SUITE_P(Services, SpeechSynthesizerContract, ::testing::Bool(),
                         [](const auto& isReal) { return isReal.param ? "Real" : "Fake"; });

using SsipSpeechSynthesizerTest = SpeechSynthesizerContract;

TEST_P(SsipSpeechSynthesizerTest, UsesInstalledVoicesAndElseTheOneForTheLanguage)
{
    const struct {
        std::optional<std::string> requested;
        std::string used; ///< NULL is the one for the language.
    } cases[] = {
        {std::nullopt, "NULL"},    {"German", "German"}, {"No such voice", "NULL"},
        {"German+Andrea", "NULL"}, {"German", "German"}, {"German\r\nSET self RATE 100", "NULL"},
    };
    Texts used;
    for (const auto& each : cases) {
        real->speak("a", each.requested);
        used.push_back(each.used);
    }
    EXPECT_EQ(spoken(used.size()), Texts(used.size(), "a"));
    EXPECT_EQ(logged("\nsynthesis_voice=", "\n"), used);
    EXPECT_EQ(logged("\nlanguage=", "\n"), Texts(used.size(), "de-at"));
    EXPECT_EQ(logged("\nrate=", "\n"), Texts(used.size(), "0"));
}

TEST_P(SsipSpeechSynthesizerTest, SpeaksTheNextWhenSomebodyStoppedTheFirst)
{
    std::string longText;
    for (int i = 0; i < 1000; ++i)
        longText += "word ";
    real->speak(longText, std::nullopt);
    real->speak("next", std::nullopt);
    ASSERT_TRUE(waitUntil([] { return !logged("speak_queue Sending", "\n").empty(); }));
    ASSERT_EQ(run({"spd-say", "--cancel"}).status, 0);
    EXPECT_EQ(spoken(1), (Texts{longText, "next"}));
}

TEST_P(SsipSpeechSynthesizerTest, ForgetsWhatWaitedForAServiceThatHangsAndStartsItAgainWhenItWasKilled)
{
    session->start("speech-dispatcher"); // later, the synthesizer has to do it
    EXPECT_NE(voicesOf(*real), Voices());
    session->raise("speech-dispatcher", SIGSTOP);
    for (int i = 0; i < 1000; ++i)
        real->speak("old", std::nullopt);
    EXPECT_EQ(voicesOf(*real), Voices());
    session->kill("speech-dispatcher");
    EXPECT_TRUE(waitUntil([&] { return voicesOf(*real) != Voices(); }));
    real->speak("new", std::nullopt);
    EXPECT_EQ(spoken(1), Texts{"new"});

    SsipSpeechSynthesizer none({.socket = "/nonexistent", .program = QStringLiteral("/nonexistent")}, "en");
    none.speak("unheard", std::nullopt);
    EXPECT_EQ(voicesOf(none), Voices());
}

INSTANTIATE_TEST_SUITE_P(Real, SsipSpeechSynthesizerTest, ::testing::Values(true));

}
}
