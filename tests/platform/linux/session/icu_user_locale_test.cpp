// SPDX-License-Identifier: MIT
#include "platform/linux/session/icu_user_locale.h"
#include "support/environment_variable.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
using std::chrono::days;

// 1 March 2026 is before the change to summer time, 1 July after it.
constexpr Date winter = std::chrono::sys_days(std::chrono::year{2026} / 3 / 1) + 13h + 5min + 59s;
constexpr Date summer = std::chrono::sys_days(std::chrono::year{2026} / 7 / 1) + 13h + 5min;

TEST(IcuUserLocale, TakesWordsAndTimesFromTheirLocales)
{
    const EnvironmentVariable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    const IcuUserLocale mixed({.words = "de-AT", .time = "en_US.UTF-8"});
    EXPECT_EQ(mixed.shortTime(winter), "2:05\u202FPM");
    EXPECT_EQ(mixed.relativeTime(winter - 2min, winter), "vor 2 Minuten");
    EXPECT_EQ(mixed.shortRelativeTime(winter - 2min, winter), "vor 2 Min.");
    const IcuUserLocale plain({.words = "C.UTF-8", .time = "POSIX"});
    EXPECT_EQ(plain.shortTime(summer), "15:05");
    EXPECT_EQ(plain.relativeTime(winter - 2min, winter), "2 minutes ago");
    const EnvironmentVariable india("TZ", "IST-5:30");
    EXPECT_EQ(plain.shortTime(winter), "18:35") << "after a journey";
}

TEST(IcuUserLocale, ChoosesTheLargestUnitThatIsWhole)
{
    const IcuUserLocale locale({.words = "en_GB", .time = "en_GB"});
    const std::pair<std::chrono::microseconds, std::string> cases[] = {{-999ms, "now"},
                                                                       {-1s, "1 second ago"},
                                                                       {-days(1) + 1s, "23 hours ago"},
                                                                       {-days(365), "11 months ago"},
                                                                       {days(800), "in 2 years"}};
    for (const auto& [difference, text] : cases)
        EXPECT_EQ(locale.relativeTime(winter + difference, winter), text);
}

TEST(IcuUserLocale, TakesTheStrongestVariableOfTheEnvironmentForTimes)
{
    const EnvironmentVariable lang("LANG", "en_US.UTF-8");
    const EnvironmentVariable time("LC_TIME", "de_DE.UTF-8");
    const EnvironmentVariable all("LC_ALL", "");
    EXPECT_EQ(IcuUserLocale::timeOfEnvironment(), "de_DE.UTF-8");
}

}
}
