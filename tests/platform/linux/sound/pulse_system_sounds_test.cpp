// SPDX-License-Identifier: MIT
// Real sounds on a real server without a loudspeaker. The end-to-end tests listen to what it plays.
#include "platform/linux/sound/pulse_system_sounds.h"

#include "harness/child_process.h"
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/sound/wav_file.h"
#include "platform/posix/posix_clock.h"
#include "support/temporary_folder.h"
#include "wav.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

/// A sound file of that many samples, of which there are 8,000 in a second.
std::string wav(std::size_t samples)
{
    return encodeWav(std::vector<std::int16_t>(samples, 1000), 8000);
}

class PulseSystemSoundsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!server.unavailable().empty()) GTEST_SKIP() << server.unavailable();
        folder.write("Short.wav", wav(4000));
        folder.write("Long.wav", wav(16000));
    }
    static bool ends(const Sound& sound)
    {
        constexpr auto limit = 20s; // the sound library itself gives up after 30
        return waitUntil([&] { return !sound.isPlaying(); }, limit);
    }
    /// How many sounds the server is playing, or keeps without playing them.
    static bool streamsBecome(int count)
    {
        return waitUntil([&] {
            return std::ranges::count(run({"pactl", "list", "short", "sink-inputs"}).output, '\n') == count;
        });
    }

    PrivateSession server{{"pulseaudio"}};
    TemporaryFolder folder;
    PulseSystemSounds sounds{folder.path()};
};

TEST_F(PulseSystemSoundsTest, PlaysToTheEndOnceAlthoughAskedTwiceAndOutlivesItsMaker)
{
    auto maker = std::make_unique<PulseSystemSounds>(folder.path());
    const auto sound = maker->named("Short");
    maker.reset();
    const PosixClock clock;
    const Instant start = clock.instant();
    sound->play();
    sound->play();
    ASSERT_TRUE(ends(*sound));
    EXPECT_GE(clock.instant() - start, 500ms) << "it ended before its last sample was heard";
    EXPECT_TRUE(streamsBecome(0));
}

TEST_F(PulseSystemSoundsTest, StoppedOrDestroyedSoundsLeaveNothingAtTheServer)
{
    std::vector<std::unique_ptr<Sound>> playing;
    for (int i = 0; i < 200; ++i) { // most end before the server could answer
        if (playing.size() == 4) playing.erase(playing.begin());
        playing.push_back(sounds.named("Long"));
        playing.back()->play();
    }
    EXPECT_TRUE(streamsBecome(4));
    playing.pop_back();
    playing.front()->stop();
    EXPECT_TRUE(streamsBecome(2));
    EXPECT_TRUE(playing[1]->isPlaying());
    EXPECT_TRUE(playing[2]->isPlaying());
    playing.front()->play();
    EXPECT_TRUE(streamsBecome(3)) << "it can be played again";
    playing.clear();
    EXPECT_TRUE(streamsBecome(0));
}

TEST_F(PulseSystemSoundsTest, AServerThatHangsOrDiesEndsSoundsUntilThereIsOneAgain)
{
    const auto sound = sounds.named("Long");
    for (const bool dies : {false, true}) {
        sound->play();
        ASSERT_TRUE(streamsBecome(1));
        dies ? server.kill("pulseaudio") : server.raise("pulseaudio", SIGSTOP);
        EXPECT_TRUE(ends(*sound)) << "while it plays";
        sound->play();
        EXPECT_TRUE(ends(*sound)) << "while it connects";

        dies ? void(server.start("pulseaudio")) : server.raise("pulseaudio", SIGCONT);
        sound->play();
        EXPECT_TRUE(streamsBecome(1));
        EXPECT_TRUE(ends(*sound));
    }
}

TEST_F(PulseSystemSoundsTest, HasOnlyTheSoundsOfItsFolder)
{
    folder.write("Text.wav", "not a sound");
    folder.write("inner/Long.wav", wav(1));
    for (const char* name : {"long", "Text", "inner/Long", "../Long", "."})
        EXPECT_EQ(sounds.named(name), nullptr) << name;
}

TEST(WavFile, ReadsFormatAndSamplesAndSkipsOtherChunks)
{
    const std::string plain = wav(8001);
    const std::string odd = plain.substr(0, 12) + std::string("LIST\x03\0\0\0abc\0", 12) + plain.substr(12);
    for (const std::string& bytes : {plain, plain + "trailing", odd}) {
        const WavFile file = parseWavFile(bytes).value_or(WavFile{});
        EXPECT_EQ(file.framesPerSecond, 8000U);
        EXPECT_EQ(file.channels, 1);
        EXPECT_EQ(file.samples, plain.substr(44));
        EXPECT_EQ(file.duration(), 1001ms) << "rounded up";
    }
}

TEST(WavFile, RefusesWhatItCannotPlay)
{
    const std::string plain = wav(4);
    for (std::size_t size = 0; size < plain.size(); ++size)
        EXPECT_FALSE(parseWavFile(plain.substr(0, size))) << "cut to " << size;
    // Other containers, formats, channels, rates, frames and sample sizes, and data that do not fit.
    const std::pair<std::size_t, int> changes[] = {{3, 'X'}, {8, 'A'}, {20, 3}, {22, 0}, {22, 3}, {24, 0x3F},
                                                   {26, 9},  {32, 4},  {34, 8}, {40, 0}, {40, 7}, {40, 9}};
    for (const auto& [place, byte] : changes) {
        std::string changed = plain;
        changed[place] = static_cast<char>(byte);
        EXPECT_FALSE(parseWavFile(changed)) << byte << " at " << place;
    }
}

}
}
