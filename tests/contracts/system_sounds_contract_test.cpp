// SPDX-License-Identifier: MIT
// What every SystemSounds does: the fake of the other tests, and the real one with a sound server.
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/sound/pulse_system_sounds.h"
#include "support/recording_sounds.h"

#include <optional>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

class SystemSoundsContract : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override
    {
        fake.missing = {"No such sound", ""};
        if (GetParam()) server.emplace(std::vector<std::string>{"pulseaudio"});
        if (server && !server->unavailable().empty()) GTEST_SKIP() << server->unavailable();
    }
    bool ends(const Sound& sound)
    {
        fake.finishAll();
        return waitUntil([&] { return !sound.isPlaying(); });
    }

    std::optional<PrivateSession> server;
    PulseSystemSounds real{CHIMEWELL_SOUNDS};
    RecordingSounds fake;
    SystemSounds& sounds = GetParam() ? static_cast<SystemSounds&>(real) : fake;
};

TEST_P(SystemSoundsContract, ASoundPlaysToItsEndAndAgain)
{
    EXPECT_EQ(sounds.named("No such sound"), nullptr);
    EXPECT_EQ(sounds.named(""), nullptr);
    const auto sound = sounds.named("Pop");
    ASSERT_NE(sound, nullptr);
    EXPECT_FALSE(sound->isPlaying());
    for (int i = 0; i < 2; ++i) {
        sound->play();
        EXPECT_TRUE(sound->isPlaying());
        EXPECT_TRUE(ends(*sound));
    }
}

TEST_P(SystemSoundsContract, StoppingASoundStopsNoOther)
{
    const auto stopped = sounds.named("Pop");
    const auto other = sounds.named("Pop");
    stopped->stop(); // does not play
    stopped->play();
    other->play();
    stopped->stop();
    EXPECT_FALSE(stopped->isPlaying());
    EXPECT_TRUE(other->isPlaying());
    stopped->play();
    EXPECT_TRUE(stopped->isPlaying());
    EXPECT_TRUE(ends(*stopped));
    EXPECT_TRUE(ends(*other));
}

INSTANTIATE_TEST_SUITE_P(Sounds, SystemSoundsContract, ::testing::Bool(),
                         [](const auto& isReal) { return isReal.param ? "Pulse" : "Fake"; });

}
}
