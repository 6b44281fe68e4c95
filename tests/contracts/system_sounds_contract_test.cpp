// SPDX-License-Identifier: MIT
// What every SystemSounds does: the fake of the other tests, and the real one with a sound server.
#include "harness/private_session.h"
#include "harness/wait_until.h"
#include "platform/linux/sound/pulse_system_sounds.h"
#include "support/recording_audio.h"
#include "values/sound_option.h"

#include <optional>

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

class SystemSoundsContract : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override
    {
        fake.missing = {"No such sound", "pop", "../sounds/Pop", ""};
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

TEST_P(SystemSoundsContract, ASoundPlaysToItsEndAndAgainUnlessItIsStopped)
{
    for (const std::string_view name : playableSoundNames)
        EXPECT_NE(sounds.named(name), nullptr) << name;
    for (const char* name : {"No such sound", "pop", "../sounds/Pop", ""})
        EXPECT_EQ(sounds.named(name), nullptr) << name;
    const auto sound = sounds.named("Pop");
    ASSERT_NE(sound, nullptr);
    EXPECT_FALSE(sound->isPlaying());
    for (int i = 0; i < 2; ++i) {
        sound->play();
        EXPECT_TRUE(sound->isPlaying());
        EXPECT_TRUE(ends(*sound));
    }
    sound->play();
    sound->stop();
    EXPECT_FALSE(sound->isPlaying());
}

INSTANTIATE_TEST_SUITE_P(Sounds, SystemSoundsContract, ::testing::Bool(),
                         [](const auto& isReal) { return isReal.param ? "Pulse" : "Fake"; });

}
}
