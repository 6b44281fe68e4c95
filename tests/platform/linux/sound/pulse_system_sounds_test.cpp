// SPDX-License-Identifier: MIT
// Real sounds on a real server without a loudspeaker; what it played is recorded and measured.
#include "platform/linux/sound/pulse_system_sounds.h"

#include "harness/private_session.h"
#include "harness/sound_recording.h"
#include "harness/wait_until.h"
#include "platform/linux/sound/wav_file.h"
#include "support/temporary_folder.h"

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

using namespace std::literals;

constexpr double low = 440;
constexpr double high = 1230;
constexpr double heard = 0.1; // of the tones' 0.25
constexpr double silent = 0.005;

std::string number(std::size_t value, int size)
{
    std::string bytes;
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    return bytes;
}

std::string chunk(const std::string& id, const std::string& content)
{
    return id + number(content.size(), 4) + content;
}

std::string riff(const std::string& chunks)
{
    return chunk("RIFF", "WAVE" + chunks);
}

std::string format(std::size_t channels, std::size_t rate)
{
    return chunk("fmt ", number(1, 2) + number(channels, 2) + number(rate, 4) +
                             number(rate * channels * 2, 4) + number(channels * 2, 2) + number(16, 2));
}

std::string tone(double frequency, double seconds)
{
    constexpr std::uint32_t rate = 44100;
    std::string samples;
    for (int i = 0; i < static_cast<int>(seconds * rate); ++i)
        samples += number(static_cast<std::size_t>(
                              std::lround(8192 * std::sin(2 * std::numbers::pi * frequency * i / rate))),
                          2);
    return riff(format(1, rate) + chunk("data", samples));
}

class PulseSystemSoundsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!server.unavailable().empty()) GTEST_SKIP() << server.unavailable();
        folder.write("Low.wav", tone(low, 2));
        folder.write("High.wav", tone(high, 2));
        folder.write("Short.wav", tone(high, 0.2));
    }
    static bool ends(const Sound& sound)
    {
        constexpr auto limit = 20s; // the sound library itself gives up after 30
        return waitUntil([&] { return !sound.isPlaying(); }, limit);
    }
    static bool isHeard(const SoundRecording& recording)
    {
        return waitUntil([&] { return recording.onset() >= 0; });
    }
    static bool streamsBecome(int count)
    {
        return waitUntil([&] { return soundStreams() == count; });
    }

    PrivateSession server{{"pulseaudio"}};
    TemporaryFolder folder;
    PulseSystemSounds sounds{folder.path()};
};

TEST_F(PulseSystemSoundsTest, PlaysTogetherStopsOneAndReportsTheEnd)
{
    const SoundRecording recording;
    const auto first = sounds.named("Low");
    const auto second = sounds.named("High");
    first->play();
    second->play();
    ASSERT_TRUE(isHeard(recording));
    const double start = recording.onset();
    ASSERT_TRUE(waitUntil([&] { return recording.duration() > start + 0.6; }));
    first->stop();
    const double stopped = recording.duration();
    ASSERT_TRUE(ends(*second));
    const double ended = recording.duration();
    ASSERT_TRUE(waitUntil([&] { return recording.duration() > start + 2.7; }));

    EXPECT_GT(recording.amplitude(low, start + 0.1, start + 0.5), heard);
    EXPECT_LT(recording.amplitude(low, stopped + 0.25, stopped + 0.75), silent);
    EXPECT_GT(recording.amplitude(high, start + 0.1, start + 0.5), heard);
    EXPECT_GT(recording.amplitude(high, start + 1.4, start + 1.9), heard);
    EXPECT_LT(recording.amplitude(high, start + 2.2, start + 2.6), silent);
    EXPECT_GT(ended, start + 1.9) << "reported ended before its last sample was heard";
}

TEST_F(PulseSystemSoundsTest, PlaysOnceAlthoughAskedTwiceAndOutlivesItsMaker)
{
    auto maker = std::make_unique<PulseSystemSounds>(folder.path());
    const auto sound = maker->named("Short");
    const SoundRecording recording;
    sound->play();
    sound->play();
    maker.reset();
    ASSERT_TRUE(ends(*sound));
    ASSERT_TRUE(isHeard(recording));
    ASSERT_TRUE(waitUntil([&] { return recording.duration() > recording.onset() + 0.5; }));
    const auto parts = recording.stretches(0.05);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_NEAR(parts[0].to - parts[0].from, 0.2, 0.03);
}

TEST_F(PulseSystemSoundsTest, StoppedOrDestroyedSoundsLeaveNothingAtTheServer)
{
    std::vector<std::unique_ptr<Sound>> playing;
    for (int i = 0; i < 200; ++i) { // most end before the server could answer
        if (playing.size() == 4) playing.erase(playing.begin());
        playing.push_back(sounds.named("Low"));
        playing.back()->play();
    }
    EXPECT_TRUE(streamsBecome(4));
    playing.pop_back();
    playing.front()->stop();
    EXPECT_TRUE(waitUntil([&] { return soundStreams() <= 2; }));
    EXPECT_TRUE(playing[1]->isPlaying());
    EXPECT_TRUE(playing[2]->isPlaying());
    playing.clear();
    EXPECT_TRUE(streamsBecome(0));
}

TEST_F(PulseSystemSoundsTest, AServerThatHangsOrDiesEndsSoundsUntilThereIsOneAgain)
{
    const auto sound = sounds.named("Low");
    for (const bool dies : {false, true}) {
        sound->play();
        ASSERT_TRUE(streamsBecome(1));
        dies ? server.kill("pulseaudio") : server.raise("pulseaudio", SIGSTOP);
        EXPECT_TRUE(ends(*sound)) << "while it plays";
        sound->play();
        EXPECT_TRUE(ends(*sound)) << "while it connects";

        dies ? void(server.start("pulseaudio")) : server.raise("pulseaudio", SIGCONT);
        const SoundRecording recording;
        sound->play();
        EXPECT_TRUE(isHeard(recording));
        EXPECT_TRUE(ends(*sound));
    }
}

TEST_F(PulseSystemSoundsTest, GivesUpAServerThatHangsAlsoInAFlood)
{
    const auto first = sounds.named("Short");
    first->play();
    ASSERT_TRUE(ends(*first)); // connected
    server.raise("pulseaudio", SIGSTOP);
    // No sound lives long enough to be overdue, and yet the server is given up.
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
    EXPECT_TRUE(isHeard(recording));
}

TEST_F(PulseSystemSoundsTest, HasOnlyTheSoundsOfItsFolder)
{
    folder.write("Text.wav", "not a sound");
    folder.write("inner/Low.wav", tone(low, 0.1));
    for (const char* name : {"low", "Text", "inner/Low", "../Low", "."})
        EXPECT_EQ(sounds.named(name), nullptr) << name;
}

const std::string stereo = format(2, 8000);
const std::string twoFrames = chunk("data", "abcdefgh");

TEST(WavFile, ReadsFormatAndSamples)
{
    const std::string plain = riff(stereo + twoFrames);
    for (const std::string& bytes :
         {plain, plain + "trailing", riff("LIST\x03\0\0\0abc\0"s + stereo + chunk("junk", "") + twoFrames)}) {
        const WavFile file = parseWavFile(bytes).value_or(WavFile{});
        EXPECT_EQ(file.framesPerSecond, 8000U);
        EXPECT_EQ(file.channels, 2);
        EXPECT_EQ(file.samples, "abcdefgh");
    }
    const WavFile file{.framesPerSecond = 8000, .channels = 1, .samples = std::string(16002, '\0')};
    EXPECT_EQ(file.duration(), 1001ms) << "rounded up";
}

TEST(WavFile, RefusesWhatItCannotPlay)
{
    const std::string plain = riff(stereo + twoFrames);
    for (std::size_t size = 0; size < plain.size(); ++size)
        EXPECT_FALSE(parseWavFile(plain.substr(0, size))) << "cut to " << size;
    const auto withFormatByte = [](std::size_t place, char value) {
        std::string changed = stereo;
        changed[8 + place] = value;
        return riff(changed + twoFrames);
    };
    const struct {
        const char* what;
        std::string bytes;
    } cases[] = {
        {"floating point", withFormatByte(0, 3)},
        {"three channels", riff(format(3, 8000) + chunk("data", "abcdef"))},
        {"no channels", withFormatByte(2, 0)},
        {"too low a rate", riff(format(2, 7999) + twoFrames)},
        {"too high a rate", riff(format(2, 192001) + twoFrames)},
        {"a frame of another size", withFormatByte(12, 2)},
        {"8 bits", withFormatByte(14, 8)},
        {"data before the format", riff(twoFrames + stereo)},
        {"no data chunk", riff(stereo)},
        {"empty data", riff(stereo + chunk("data", ""))},
        {"half a frame", riff(stereo + chunk("data", "abcdef"))},
        {"a chunk larger than the file", riff(stereo + "data\xFC\xFF\xFF\xFF" + "abcd")},
        {"a short format", riff(chunk("fmt ", number(1, 2) + number(2, 2)) + twoFrames)},
        {"another container", "RIFX" + plain.substr(4)},
        {"another content", plain.substr(0, 8) + "AVI " + plain.substr(12)},
    };
    for (const auto& each : cases)
        EXPECT_FALSE(parseWavFile(each.bytes)) << each.what;
}

}
}
