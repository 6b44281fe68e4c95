// SPDX-License-Identifier: MIT
// Real sounds on a real server without a loudspeaker; what it played is recorded and measured.
#include "platform/linux/sound/pulse_system_sounds.h"

#include "harness/private_session.h"
#include "harness/sound_recording.h"
#include "harness/wait_until.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <deque>
#include <memory>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

constexpr double low = 440;
constexpr double high = 1230;
constexpr double heard = 0.1; // of the tones' 0.25
constexpr double silent = 0.005;

void append(std::string& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

std::string toneFile(double frequency, double seconds)
{
    constexpr std::uint32_t rate = 44100;
    std::string samples;
    for (int i = 0; i < static_cast<int>(seconds * rate); ++i)
        append(samples,
               static_cast<std::uint32_t>(
                   std::lround(8192 * std::sin(2 * std::numbers::pi * frequency * i / rate))),
               2);
    const auto size = static_cast<std::uint32_t>(samples.size());
    std::string bytes = "RIFF";
    append(bytes, 36 + size, 4);
    bytes += "WAVEfmt ";
    append(bytes, 16, 4);
    append(bytes, 1, 2);
    append(bytes, 1, 2);
    append(bytes, rate, 4);
    append(bytes, rate * 2, 4);
    append(bytes, 2, 2);
    append(bytes, 16, 2);
    bytes += "data";
    append(bytes, size, 4);
    return bytes + samples;
}

class PulseSystemSoundsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!server.unavailable().empty()) GTEST_SKIP() << server.unavailable();
        folder.write("Low.wav", toneFile(low, 2));
        folder.write("High.wav", toneFile(high, 2));
        folder.write("Short.wav", toneFile(high, 0.2));
    }

    PrivateSession server{{"pulseaudio"}};
    TemporaryFolder folder;
    PulseSystemSounds sounds{folder.path()};
};

TEST_F(PulseSystemSoundsTest, PlaysTogetherStopsOneAndTellsTheEnd)
{
    const SoundRecording recording;
    const auto first = sounds.named("Low");
    const auto second = sounds.named("High");
    EXPECT_FALSE(first->isPlaying());
    first->play();
    second->play();
    EXPECT_TRUE(first->isPlaying());
    ASSERT_TRUE(waitUntil([&] { return recording.onset() >= 0; }));
    const double start = recording.onset();
    ASSERT_TRUE(waitUntil([&] { return recording.duration() > start + 0.6; }));
    first->stop();
    const double stopped = recording.duration();
    EXPECT_FALSE(first->isPlaying());
    EXPECT_TRUE(second->isPlaying());
    ASSERT_TRUE(waitUntil([&] { return !second->isPlaying(); }));
    const double ended = recording.duration();
    ASSERT_TRUE(waitUntil([&] { return recording.duration() > start + 2.7; }));

    EXPECT_GT(recording.amplitude(low, start + 0.1, start + 0.5), heard);
    EXPECT_LT(recording.amplitude(low, stopped + 0.25, stopped + 0.75), silent);
    EXPECT_GT(recording.amplitude(high, start + 0.1, start + 0.5), heard);
    EXPECT_GT(recording.amplitude(high, start + 1.4, start + 1.9), heard);
    EXPECT_LT(recording.amplitude(high, start + 2.2, start + 2.6), silent);
    EXPECT_GT(ended, start + 1.9) << "reported ended before its last sample was heard";
}

TEST_F(PulseSystemSoundsTest, PlaysAgainFromTheStart)
{
    const auto sound = sounds.named("Short");
    for (int i = 0; i < 2; ++i) {
        const SoundRecording recording;
        sound->play();
        sound->play(); // is playing already
        ASSERT_TRUE(waitUntil([&] { return !sound->isPlaying(); }));
        ASSERT_TRUE(waitUntil([&] { return recording.onset() >= 0; }));
        ASSERT_TRUE(waitUntil([&] { return recording.duration() > recording.onset() + 0.5; }));
        const auto heardParts = recording.stretches(0.05);
        ASSERT_EQ(heardParts.size(), 1U);
        EXPECT_NEAR(heardParts[0].to - heardParts[0].from, 0.2, 0.03);
    }
}

TEST_F(PulseSystemSoundsTest, StoppedOrForgottenSoundsLeaveNothingAtTheServer)
{
    std::vector<std::unique_ptr<Sound>> playing;
    for (int i = 0; i < 200; ++i) { // as in a flood: most end before the server could answer
        if (playing.size() == 4) playing.erase(playing.begin());
        playing.push_back(sounds.named("Low"));
        playing.back()->play();
    }
    EXPECT_TRUE(waitUntil([&] { return soundStreams() == 4; }));
    playing.pop_back();
    playing.front()->stop();
    EXPECT_TRUE(waitUntil([&] { return soundStreams() <= 2; }));
    EXPECT_TRUE(playing[1]->isPlaying());
    EXPECT_TRUE(playing[2]->isPlaying());
    playing.clear();
    EXPECT_TRUE(waitUntil([&] { return soundStreams() == 0; }));
}

TEST_F(PulseSystemSoundsTest, SoundsOutliveTheirMaker)
{
    auto maker = std::make_unique<PulseSystemSounds>(folder.path());
    const auto sound = maker->named("Short");
    sound->play();
    maker.reset();
    EXPECT_TRUE(waitUntil([&] { return !sound->isPlaying(); }));
}

TEST_F(PulseSystemSoundsTest, UsesTheNextServerWhenOneIsKilled)
{
    auto sound = sounds.named("Low");
    sound->play();
    ASSERT_TRUE(waitUntil([&] { return soundStreams() == 1; }));
    server.kill("pulseaudio");
    EXPECT_TRUE(waitUntil([&] { return !sound->isPlaying(); }));

    sound->play(); // nobody there
    EXPECT_TRUE(waitUntil([&] { return !sound->isPlaying(); }));

    server.start("pulseaudio");
    const SoundRecording recording;
    sound->play();
    EXPECT_TRUE(waitUntil([&] { return recording.onset() >= 0; }));
    EXPECT_TRUE(sound->isPlaying());
}

TEST_F(PulseSystemSoundsTest, AServerThatHangsEndsSoundsUntilItGoesOn)
{
    const auto sound = sounds.named("Low");
    sound->play();
    ASSERT_TRUE(waitUntil([&] { return soundStreams() == 1; }));
    server.raise("pulseaudio", SIGSTOP); // while a sound plays
    EXPECT_TRUE(waitUntil([&] { return !sound->isPlaying(); }));

    sound->play(); // a connection that nobody answers
    EXPECT_TRUE(sound->isPlaying());
    EXPECT_TRUE(waitUntil([&] { return !sound->isPlaying(); }));

    server.raise("pulseaudio", SIGCONT);
    const SoundRecording recording;
    sound->play();
    EXPECT_TRUE(waitUntil([&] { return recording.onset() >= 0; }));
    EXPECT_TRUE(waitUntil([&] { return !sound->isPlaying(); }));
}

TEST_F(PulseSystemSoundsTest, GivesUpAServerThatHangsAlsoInAFlood)
{
    const auto first = sounds.named("Short");
    first->play();
    ASSERT_TRUE(waitUntil([&] { return !first->isPlaying(); })); // connected
    server.raise("pulseaudio", SIGSTOP);
    // No sound gets old enough to be overdue, and yet the server is given up.
    std::deque<std::unique_ptr<Sound>> playing;
    const auto playAnother = [&] {
        playing.push_back(sounds.named("Low"));
        playing.back()->play();
        if (playing.size() > 4) playing.pop_front();
        return !playing.front()->isPlaying();
    };
    EXPECT_TRUE(waitUntil(playAnother));
    server.raise("pulseaudio", SIGCONT);
    const SoundRecording recording;
    playAnother();
    EXPECT_TRUE(waitUntil([&] { return recording.onset() >= 0; }));
}

TEST_F(PulseSystemSoundsTest, HasOnlyTheSoundsOfItsFolder)
{
    folder.write("Text.wav", "not a sound");
    folder.write("inner/Low.wav", toneFile(low, 0.1));
    for (const char* name : {"", "low", "Basso", "Text", "inner/Low", "../Low", "."})
        EXPECT_EQ(sounds.named(name), nullptr) << name;
}

}
}
