// SPDX-License-Identifier: MIT
// What tests/contracts does not ask of every SpeechSynthesizer: the protocol, and services that fail.
#include "platform/linux/speech/ssip_speech_synthesizer.h"

#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "support/scripted_speech_service.h"
#include "support/temporary_folder.h"

#include <QString>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using Voices = std::vector<Voice>;

Voice voice(const std::string& name, const std::string& language)
{
    return {.identifier = name, .name = name, .language = language};
}

Voices voicesOf(SpeechSynthesizer& synthesizer)
{
    std::optional<Voices> result;
    synthesizer.listVoices([&result](Voices voices) { result = std::move(voices); });
    EXPECT_FALSE(result) << "answered at once";
    EXPECT_TRUE(waitUntil([&] { return result.has_value(); }));
    return result.value_or(Voices{});
}

class SsipSpeechSynthesizerTest : public ::testing::Test {
protected:
    bool waitForSpoken(std::size_t count)
    {
        return waitUntil([&] { return service->spoken.size() == count; });
    }

    TemporaryFolder folder;
    std::optional<ScriptedSpeechService> service{folder.path() / "speech"};
    SsipSpeechSynthesizer synthesizer{
        {.socket = folder.path() / "speech", .program = QStringLiteral("/nonexistent/speech-dispatcher")},
        "de-AT"};
    const Voices voices{voice("English (America)", "en-US"), voice("German", "de"), voice("C++", "en-GB")};
};

TEST_F(SsipSpeechSynthesizerTest, SpeaksTheNextWhenOneEndedOrWasCancelled)
{
    for (const char* text : {"one", "two", "three"})
        synthesizer.speak(text, std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    for (const char* setting : {"SET self PRIORITY MESSAGE", "SET self LANGUAGE de-AT"})
        EXPECT_EQ(std::ranges::count(service->commands, setting), 1) << setting;
    EXPECT_EQ(voicesOf(synthesizer), voices); // a round trip while the first is spoken
    EXPECT_EQ(service->spoken.size(), 1U);
    service->end(702);
    ASSERT_TRUE(waitForSpoken(2));
    service->end(703);
    ASSERT_TRUE(waitForSpoken(3));
}

TEST_F(SsipSpeechSynthesizerTest, DropsTheOldestThatWaitBeyondTwenty)
{
    synthesizer.speak("0", std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    for (int i = 1; i <= 100; ++i)
        synthesizer.speak(std::to_string(i), std::nullopt);
    service->endsAtOnce = true;
    service->end();
    ASSERT_TRUE(waitUntil([&] { return service->spoken.back().text == "100\r\n.\r\n"; }));
    EXPECT_EQ(service->spoken.size(), 21U);
    EXPECT_EQ(service->spoken[1].text, "81\r\n.\r\n");
}

TEST_F(SsipSpeechSynthesizerTest, UsesInstalledVoicesAndElseTheDefault)
{
    const struct {
        std::optional<std::string> requested;
        std::string used;
    } cases[] = {
        {std::nullopt, ""},    {"German", "German"},
        {"German", "German"},  {"Klingon", ""},
        {"German", "German"},  {std::nullopt, ""},
        {"German+Andrea", ""}, {"German\r\nSET self RATE 100", ""},
    };
    service->endsAtOnce = true;
    for (const auto& each : cases) {
        service->spoken.clear();
        synthesizer.speak("Hello", each.requested);
        ASSERT_TRUE(waitForSpoken(1));
        EXPECT_EQ(service->spoken[0].voice, each.used) << each.requested.value_or("none");
    }
    EXPECT_EQ(std::ranges::count(service->commands, "SET self RATE 100"), 0);
    EXPECT_EQ(std::ranges::count(service->commands, "LIST SYNTHESIS_VOICES"), 1);
}

TEST_F(SsipSpeechSynthesizerTest, NoLineOfATextEndsIt)
{
    service->endsAtOnce = true;
    synthesizer.speak(".\n\nQUIT\n..\nthree.\n.", std::nullopt);
    synthesizer.speak("", std::nullopt);
    ASSERT_TRUE(waitForSpoken(2));
    EXPECT_EQ(service->spoken[0].text, "..\r\n\r\nQUIT\r\n...\r\nthree.\r\n..\r\n.\r\n");
    EXPECT_EQ(service->spoken[1].text, ".\r\n");
}

TEST_F(SsipSpeechSynthesizerTest, ForgetsWhatWaitedForAServiceThatHangsOrExitsAndUsesTheNextOne)
{
    for (const bool exits : {false, true}) {
        service->answers = exits;
        for (int i = 0; i < 1000; ++i)
            synthesizer.speak("old", std::nullopt);
        if (exits) service.reset();
        EXPECT_EQ(voicesOf(synthesizer), Voices());
        service.reset();
        synthesizer.speak("no service", std::nullopt);
        EXPECT_EQ(voicesOf(synthesizer), Voices());

        service.emplace(folder.path() / "speech");
        EXPECT_EQ(voicesOf(synthesizer), voices);
        synthesizer.speak("new", std::nullopt);
        ASSERT_TRUE(waitForSpoken(1));
        EXPECT_EQ(service->spoken[0].text, "new\r\n.\r\n");
    }
}

TEST(SsipSpeechSynthesizer, StartsARealServiceAgainThatWasKilled)
{
    PrivateSession session({"pulseaudio", "speech-dispatcher"});
    if (!session.unavailable().empty()) GTEST_SKIP() << session.unavailable();
    session.start("speech-dispatcher"); // the second time, the synthesizer has to do it
    SsipSpeechSynthesizer synthesizer(SsipSpeechSynthesizer::Service::ofSession(), "en");
    EXPECT_NE(voicesOf(synthesizer), Voices());
    session.kill("speech-dispatcher");
    EXPECT_TRUE(waitUntil([&] { return voicesOf(synthesizer) != Voices(); }));
}

}
}
