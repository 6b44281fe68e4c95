// SPDX-License-Identifier: MIT
#include "platform/linux/speech/ssip_speech_synthesizer.h"

#include "harness/private_session.h"
#include "harness/sound_recording.h"
#include "harness/wait_until.h"
#include "support/scripted_speech_service.h"
#include "support/temporary_folder.h"

#include <QString>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
using Spoken = ScriptedSpeechService::Spoken;

const QString noProgram = QStringLiteral("/nonexistent/speech-dispatcher");

std::vector<Voice> voicesOf(SpeechSynthesizer& synthesizer)
{
    std::optional<std::vector<Voice>> result;
    synthesizer.listVoices([&result](std::vector<Voice> voices) { result = std::move(voices); });
    EXPECT_FALSE(result) << "handed over at once";
    EXPECT_TRUE(waitUntil([&] { return result.has_value(); }, 20s));
    return result.value_or(std::vector<Voice>{});
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
        SsipSpeechSynthesizer::Service{.socket = folder.path() / "speech", .program = noProgram}, "de-AT");
    const Voice german{.identifier = "German", .name = "German", .language = "de"};
};

TEST_F(SsipSpeechSynthesizerTest, SpeaksTheNextWhenOneEndedOrWasCancelled)
{
    for (const char* text : {"one", "two", "three"})
        synthesizer->speak(text, std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    for (const char* setting : {"SET self PRIORITY MESSAGE", "SET self LANGUAGE de-AT"})
        EXPECT_EQ(std::ranges::count(service->commands, setting), 1) << setting;
    EXPECT_EQ(voicesOf(*synthesizer), std::vector{german}); // a round trip meanwhile
    EXPECT_EQ(service->spoken.size(), 1U);
    service->end(702);
    ASSERT_TRUE(waitForSpoken(2));
    service->end(703);
    ASSERT_TRUE(waitForSpoken(3));
    const std::vector<Spoken> all{{"one\r\n.\r\n", ""}, {"two\r\n.\r\n", ""}, {"three\r\n.\r\n", ""}};
    EXPECT_EQ(service->spoken, all);
    EXPECT_EQ(service->connections(), 1);
}

TEST_F(SsipSpeechSynthesizerTest, NoticesAnEndThatIsToldBeforeTheNumber)
{
    service->endsAtOnce = true;
    synthesizer->speak("one", std::nullopt);
    synthesizer->speak("two", std::nullopt);
    EXPECT_TRUE(waitForSpoken(2));
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
        std::optional<std::string> wanted;
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
        synthesizer->speak("Hello", each.wanted);
        ASSERT_TRUE(waitUntil([&] { return !service->spoken.empty(); }));
        EXPECT_EQ(service->spoken[0].voice, each.used) << each.wanted.value_or("none");
        service->spoken.clear();
        service->end();
    }
    EXPECT_EQ(std::ranges::count(service->commands, "SET self RATE 100"), 0);
    EXPECT_EQ(std::ranges::count(service->commands, "LIST SYNTHESIS_VOICES"), 1);
}

TEST_F(SsipSpeechSynthesizerTest, MakesTextSafeForTheService)
{
    const struct {
        std::string text;
        std::string block;
    } cases[] = {
        {".\nQUIT\n.", "..\r\nQUIT\r\n..\r\n.\r\n"},
        {"a\n.\nb", "a\r\n..\r\nb\r\n.\r\n"},
    };
    service->endsAtOnce = true;
    for (const auto& each : cases) {
        service->spoken.clear();
        synthesizer->speak(each.text, std::nullopt);
        ASSERT_TRUE(waitForSpoken(1));
        EXPECT_EQ(service->spoken[0].text, each.block);
    }
}

TEST_F(SsipSpeechSynthesizerTest, ForgetsWhatWaitedWhenTheServiceGoesAndUsesTheNextOne)
{
    for (int i = 0; i < 5; ++i)
        synthesizer->speak("old", std::nullopt);
    ASSERT_TRUE(waitForSpoken(1));
    service->disconnectAll();
    service.reset();
    EXPECT_TRUE(voicesOf(*synthesizer).empty());
    synthesizer->speak("nobody there", std::nullopt);
    EXPECT_TRUE(voicesOf(*synthesizer).empty());

    service = std::make_unique<ScriptedSpeechService>(folder.path() / "speech");
    EXPECT_EQ(voicesOf(*synthesizer), std::vector{german});
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
    for (const QByteArray& words : {QByteArray("HTTP/1.1 400 Bad Request\r\n"), QByteArray(20000, '2')}) {
        service->firstWords = words;
        EXPECT_TRUE(voicesOf(*synthesizer).empty()) << words.first(10).toStdString();
    }
    service->firstWords = "702 END\r\n799-9\r\n799 ?\r\n"; // events of others do no harm
    EXPECT_EQ(voicesOf(*synthesizer), std::vector{german});
}

TEST_F(SsipSpeechSynthesizerTest, HandsNothingOverOnceDestroyed)
{
    bool called = false;
    bool others = false;
    SsipSpeechSynthesizer other({.socket = folder.path() / "speech", .program = noProgram}, "en");
    synthesizer->listVoices([&](const std::vector<Voice>&) {
        called = true;
        synthesizer.reset();
    });
    synthesizer->listVoices([&](const std::vector<Voice>&) { others = true; });
    ASSERT_TRUE(waitUntil([&] { return called; }));
    voicesOf(other);
    EXPECT_FALSE(others);
}

class RealSpeechServiceTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!session.unavailable().empty()) GTEST_SKIP() << session.unavailable();
    }

    PrivateSession session{{"pulseaudio", "speech-dispatcher"}};
    SsipSpeechSynthesizer synthesizer{SsipSpeechSynthesizer::Service::ofSession(), "en"};
};

TEST_F(RealSpeechServiceTest, IsStartedOnDemandAndCutsNothingShort)
{
    const std::string counting = "one two three four";
    // Longer than any pause between two utterances.
    const auto heardOut = [](const SoundRecording& recording) {
        const bool isHeard = waitUntil([&] { return recording.onset() >= 0; }, 20s);
        const bool isOver = waitUntil([&] { return recording.silenceAtEnd() > 3; }, 40s);
        return isHeard && isOver ? recording.soundingTime() : 0;
    };
    const auto first = std::make_unique<SoundRecording>();
    synthesizer.speak("no", std::nullopt);
    ASSERT_GT(heardOut(*first), 0);

    const auto alone = std::make_unique<SoundRecording>();
    synthesizer.speak(counting, std::nullopt);
    const double once = heardOut(*alone);

    const SoundRecording together;
    synthesizer.speak(counting, std::nullopt);
    synthesizer.speak(counting, std::string("No such voice"));
    synthesizer.speak(counting, std::string("English (America)"));
    // On a busy machine there may be long pauses, while the service lists its voices.
    EXPECT_TRUE(waitUntil([&] { return together.soundingTime() > 2.5 * once; }, 60s))
        << together.soundingTime();
}

TEST_F(RealSpeechServiceTest, ListsEachVoiceOnceWithItsLanguage)
{
    session.start("speech-dispatcher");
    const std::vector<Voice> voices = voicesOf(synthesizer);
    EXPECT_EQ(std::ranges::count(voices, Voice{"English (America)", "English (America)", "en-US"}), 1);
    EXPECT_EQ(std::ranges::count(voices, Voice{"German", "German", "de"}), 1);
    for (const Voice& voice : voices) {
        EXPECT_EQ(std::ranges::count(voices, voice.identifier, &Voice::identifier), 1) << voice.identifier;
        EXPECT_FALSE(voice.identifier.contains('+')) << voice.identifier;
        EXPECT_FALSE(voice.language.empty()) << voice.identifier;
    }
}

TEST_F(RealSpeechServiceTest, SpeaksAgainAfterTheServiceWasKilled)
{
    session.start("speech-dispatcher");
    const SoundRecording recording;
    synthesizer.speak("one two three four five six seven eight nine ten", std::nullopt);
    ASSERT_TRUE(waitUntil([&] { return recording.onset() >= 0; }));
    session.kill("speech-dispatcher");
    const SoundRecording next;
    synthesizer.speak("one", std::nullopt); // starts it
    EXPECT_TRUE(waitUntil([&] { return next.onset() >= 0; }));
}

}
}
