// SPDX-License-Identifier: MIT
// Real sounds on a real server without a loudspeaker. The end-to-end tests listen to what it plays.
#include "platform/linux/sound/pulse_system_sounds.h"

#include "harness/child_process.h"
#include "harness/private_session.h"
#include "harness/wait_until.h"
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
        return waitUntil([&] { return !sound.isPlaying(); },
                         20s); // the sound library itself gives up after 30
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

TEST_F(PulseSystemSoundsTest, HasNoSoundOfAFileThatItCannotPlay)
{
    // Two names, a length beyond the file's end, a format too short, not PCM, three channels, eight bits.
    for (const auto& [place, byte] :
         {std::pair{0U, 'X'}, {8U, 'X'}, {7U, ''}, {16U, ''}, {20U, ''}, {22U, ''}, {34U, ''}}) {
        std::string file = wav(10);
        file[place] = byte;
        folder.write("Broken.wav", file);
        EXPECT_EQ(sounds.named("Broken"), nullptr) << place;
    }
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

}
}
