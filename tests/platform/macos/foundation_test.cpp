// SPDX-License-Identifier: MIT
#include "fakes/user_environment.h"
#include "platform/macos/bundle_resources.h"
#include "platform/macos/foundation_user_folders.h"
#include "platform/macos/foundation_user_locale.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>

namespace chimewell::test {

using namespace std::chrono_literals;

TEST(FoundationUserLocaleTest, AsksForTheRightForms)
{
    const FoundationUserLocale locale;
    const Date now{1000s};
    EXPECT_EQ(locale.shortTime(now + 250ms), "date 0 time 1 local at 1000.25");
    EXPECT_EQ(locale.relativeTime(now - 120s, now), "style 1 units 0 after -120"); // named, in full words
    EXPECT_EQ(locale.shortRelativeTime(now - 120s, now), "style 1 units 2 after -120"); // named, short
}

TEST(FoundationUserFoldersTest, AreTheSystems)
{
    const FoundationUserFolders folders;
    mac::userEnvironment().home = "/Users/jörg";
    EXPECT_EQ(folders.home(), "/Users/jörg");
    mac::userEnvironment().applicationSupport = "/Users/jörg/Library/Application Support";
    EXPECT_EQ(folders.applicationSupport(), "/Users/jörg/Library/Application Support");
    mac::userEnvironment().applicationSupport = std::nullopt;
    EXPECT_EQ(folders.applicationSupport(), std::nullopt);
}

TEST(BundleResourcesTest, AreFoundByTheirWholeNames)
{
    const std::string inBundle = "/Applications/Chimewell.app/Contents/Resources/";
    mac::userEnvironment().resources = {{"chimewell-hook", inBundle + "chimewell-hook"},
                                        {"Tink.wav", inBundle + "Tink.wav"}};
    const BundleResources resources;
    EXPECT_EQ(resources.named("chimewell-hook"), inBundle + "chimewell-hook");
    EXPECT_EQ(resources.named("Tink.wav"), inBundle + "Tink.wav");
    EXPECT_EQ(resources.named("Tink"), std::nullopt);
}

}
