// SPDX-License-Identifier: MIT
#include "platform/macos/appkit_system_sounds.h"

#include "fakes/sounds.h"

#include <gtest/gtest.h>

#include <string>

namespace chimewell::test {

namespace {

std::string playing()
{
    std::string names;
    for (const mac::PlayedSound& sound : mac::sounds().played)
        if (sound.playing) names += sound.name + " ";
    return names;
}

}

TEST(AppKitSystemSoundsTest, PlaysAFreshSoundEachTime)
{
    AppKitSystemSounds sounds;
    const auto first = sounds.named("Tink");
    auto second = sounds.named("Tink");
    ASSERT_TRUE(first && second);
    EXPECT_FALSE(first->isPlaying());
    first->play();
    second->play();
    EXPECT_EQ(playing(), "Tink Tink ");
    first->stop();
    EXPECT_FALSE(first->isPlaying());
    EXPECT_TRUE(second->isPlaying());
    second.reset();
    EXPECT_EQ(playing(), "");
    EXPECT_EQ(sounds.named("Nothing of the kind"), nullptr);
    EXPECT_EQ(sounds.named("Ti\xffnk"), nullptr);
}

TEST(AppKitSystemSoundsTest, TheFifthSoundStopsTheFirst)
{
    AppKitSystemSounds sounds;
    SoundPlayer player(sounds);
    for (const char* name : {"Glass", "Tink", "Glass", "Glass"})
        player.play(name);
    EXPECT_EQ(playing(), "Glass Tink Glass Glass ");
    player.play("Glass");
    EXPECT_EQ(playing(), "Tink Glass Glass Glass ");

    for (mac::PlayedSound& sound : mac::sounds().played)
        sound.playing = false; // all came to their ends
    player.play("Basso");
    player.play("Hero"); // not on this Mac
    EXPECT_EQ(playing(), "Basso ");
    for (const mac::PlayedSound& sound : mac::sounds().played)
        EXPECT_FALSE(sound.isShared) << sound.name;
}

}
