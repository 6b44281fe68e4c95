// SPDX-License-Identifier: MIT
// What tests/contracts does not ask of every SpeechSynthesizer: the protocol, and services that fail.
#include "platform/linux/speech/ssip_speech_synthesizer.h"

#include "harness/private_session.h"
#include "harness/sound_recording.h"
#include "harness/wait_until.h"
#include "support/scripted_speech_service.h"
#include "support/temporary_folder.h"

#include <QString>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
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
    std::unique_ptr<ScriptedSpeechService> service =
        std::make_unique<ScriptedSpeechService>(folder.path() / "speech");
    std::unique_ptr<SsipSpeechSynthesizer> synthesizer = std::make_unique<SsipSpeechSynthesizer>(
        SsipSpeechSynthesizer::Service{.socket = folder.path() / "speech",
                                       .program = QStringLiteral("/nonexistent/speech-dispatcher")},
        "de-AT");
    const Voices german{voice("German", "de")};
};

TEST_F(SsipSpeechSynthesizerTest, SpeaksTheNextWhenOneEndedOrWasCancelled)
{
    for (const char* text : {"one", "two", "three"})
        synthesizer->speak(text, std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    for (const char* setting : {"SET self PRIORITY MESSAGE", "SET self LANGUAGE de-AT"})
        EXPECT_EQ(std::ranges::count(service->commands, setting), 1) << setting;
    EXPECT_EQ(voicesOf(*synthesizer), german); // a round trip while the first is spoken
    EXPECT_EQ(service->spoken.size(), 1U);
    service->end(702);
    ASSERT_TRUE(waitForSpoken(2));
    service->end(703);
    ASSERT_TRUE(waitForSpoken(3));
    EXPECT_EQ(service->connections(), 1);
}

TEST_F(SsipSpeechSynthesizerTest, DropsTheOldestThatWaitBeyondTwenty)
{
    synthesizer->speak("0", std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    for (int i = 1; i <= 1000; ++i)
        synthesizer->speak(std::to_string(i), std::nullopt);
    for (std::size_t i = 1; i <= 20; ++i) {
        service->end();
        ASSERT_TRUE(waitForSpoken(i + 1));
        EXPECT_EQ(service->spoken.back().text, std::to_string(980 + i) + "\r\n.\r\n");
    }
    service->end();
    voicesOf(*synthesizer);
    EXPECT_EQ(service->spoken.size(), 21U);
}

TEST_F(SsipSpeechSynthesizerTest, UsesInstalledVoicesAndElseTheDefault)
{
    const struct {
        std::optional<std::string> requested;
        std::string used;
    } cases[] = {
        {std::nullopt, ""},
        {"German", "German"},
        {"German", "German"},
        {"Klingon", ""},
        {"German", "German"},
        {std::nullopt, ""},
        {"German+Andrea", ""},
        {"", ""},
        {"German\r\nSET self RATE 100", ""},
    };
    for (const auto& each : cases) {
        synthesizer->speak("Hello", each.requested);
        ASSERT_TRUE(waitForSpoken(1));
        EXPECT_EQ(service->spoken[0].voice, each.used) << each.requested.value_or("none");
        service->spoken.clear();
        service->end();
    }
    EXPECT_EQ(std::ranges::count(service->commands, "SET self RATE 100"), 0);
    EXPECT_EQ(std::ranges::count(service->commands, "LIST SYNTHESIS_VOICES"), 1);
}

TEST_F(SsipSpeechSynthesizerTest, ListsVoicesButNotTheirVariants)
{
    service->voiceRows = "249-English (America)\ten-US\tnone\r\n249-German+Andrea\tde\tAndrea\r\n"
                         "249-kal_diphone\ten_GB\tFEMALE1\r\n249-C++\tde\r\n"
                         "249-\tde\tnone\r\n249-German\t\tnone\r\n249-German\r\n249-\r\n";
    EXPECT_EQ(voicesOf(*synthesizer), (Voices{voice("English (America)", "en-US"),
                                              voice("kal_diphone", "en-GB"), voice("C++", "de")}));
}

TEST_F(SsipSpeechSynthesizerTest, NoLineOfATextEndsIt)
{
    const struct {
        std::string text;
        std::string block;
    } cases[] = {
        {".", "..\r\n.\r\n"},
        {".\nQUIT\n.", "..\r\nQUIT\r\n..\r\n.\r\n"},
        {"one\n.two\n..\nthree.", "one\r\n..two\r\n...\r\nthree.\r\n.\r\n"},
        {"\n.\n", "\r\n..\r\n.\r\n"},
        {"", ".\r\n"},
    };
    service->endsAtOnce = true;
    for (const auto& each : cases) {
        service->spoken.clear();
        synthesizer->speak(each.text, std::nullopt);
        ASSERT_TRUE(waitForSpoken(1));
        EXPECT_EQ(service->spoken[0].text, each.block);
    }
}

TEST_F(SsipSpeechSynthesizerTest, ForgetsWhatWaitedWhenTheServiceExitsAndUsesTheNextOne)
{
    for (int i = 0; i < 5; ++i)
        synthesizer->speak("old", std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    service->disconnectAll();
    service.reset();
    EXPECT_TRUE(voicesOf(*synthesizer).empty());
    synthesizer->speak("no service", std::nullopt);
    EXPECT_TRUE(voicesOf(*synthesizer).empty());

    service = std::make_unique<ScriptedSpeechService>(folder.path() / "speech");
    EXPECT_EQ(voicesOf(*synthesizer), german);
    synthesizer->speak("new", std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    EXPECT_EQ(service->spoken[0].text, "new\r\n.\r\n");
}

TEST_F(SsipSpeechSynthesizerTest, GivesUpAServiceThatNeverAnswers)
{
    service->answers = false;
    for (int i = 0; i < 1000; ++i)
        synthesizer->speak("lost", std::nullopt);
    EXPECT_TRUE(voicesOf(*synthesizer).empty());
    EXPECT_EQ(service->connections(), 1);

    service->answers = true;
    synthesizer->speak("new", std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    EXPECT_EQ(service->spoken[0].text, "new\r\n.\r\n");
}

TEST_F(SsipSpeechSynthesizerTest, GivesUpWhatIsNoSpeechService)
{
    for (const std::string& words :
         {std::string("HTTP/1.1 400 Bad Request\r\n"), std::string(20000, '2'), std::string("208\r\n"),
          std::string("20 OK\r\n"), std::string("2080 OK\r\n"), std::string("099 OK\r\n"),
          std::string("208\tOK\r\n")}) {
        service->firstWords = QByteArray::fromStdString(words);
        EXPECT_TRUE(voicesOf(*synthesizer).empty()) << words.substr(0, 10);
    }
    service->firstWords = "702 END\r\n799-9\r\n799 ?\r\n"; // events of others are harmless
    EXPECT_EQ(voicesOf(*synthesizer), german);
}

TEST_F(SsipSpeechSynthesizerTest, CallsNobodyOnceDestroyed)
{
    bool called = false;
    bool others = false;
    SsipSpeechSynthesizer other({.socket = folder.path() / "speech", .program = QString()}, "en");
    synthesizer->listVoices([&](const Voices&) {
        called = true;
        synthesizer.reset();
    });
    synthesizer->listVoices([&](const Voices&) { others = true; });
    ASSERT_TRUE(waitUntil([&] { return called; }));
    voicesOf(other);
    EXPECT_FALSE(others);
}

TEST(SsipSpeechSynthesizer, IsHeardAndStartsAServiceThatWasKilledAgain)
{
    PrivateSession session({"pulseaudio", "speech-dispatcher"});
    if (!session.unavailable().empty()) GTEST_SKIP() << session.unavailable();
    session.start("speech-dispatcher"); // the second time, the synthesizer has to do it
    SsipSpeechSynthesizer synthesizer(SsipSpeechSynthesizer::Service::ofSession(), "en");
    for (int i = 0; i < 2; ++i) {
        const SoundRecording recording;
        synthesizer.speak("one two three four five six seven eight nine ten", std::nullopt);
        EXPECT_TRUE(waitUntil([&] { return recording.onset() >= 0; }));
        session.kill("speech-dispatcher");
    }
}

}
}
