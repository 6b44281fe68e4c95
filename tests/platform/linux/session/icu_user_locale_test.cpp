// SPDX-License-Identifier: MIT
#include "platform/linux/session/icu_user_locale.h"
#include "support/environment_variable.h"

#include <gtest/gtest.h>

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
    const struct {
        std::string words, times, time, relative, shortRelative;
    } cases[] = {
        {"de-AT", "en_US.UTF-8", "2:05\u202FPM", "vor 2 Minuten", "vor 2 Min."},
        {"fr_FR@euro", "de_DE", "14:05", "il y a 2 minutes", "il y a 2\u00A0min"},
        {"C.UTF-8", "POSIX", "14:05", "2 minutes ago", "2 min. ago"},
    };
    for (const auto& each : cases) {
        const IcuUserLocale locale({.words = each.words, .time = each.times});
        EXPECT_EQ(locale.shortTime(winter), each.time) << each.times;
        EXPECT_EQ(locale.relativeTime(winter - 2min, winter), each.relative) << each.words;
        EXPECT_EQ(locale.shortRelativeTime(winter - 2min, winter), each.shortRelative) << each.words;
    }
    const IcuUserLocale locale({.words = "de_DE", .time = "de_DE"});
    EXPECT_EQ(locale.shortTime(summer), "15:05");
    const EnvironmentVariable india("TZ", "IST-5:30");
    EXPECT_EQ(locale.shortTime(winter), "18:35") << "after a journey";
}

TEST(IcuUserLocale, ChoosesTheLargestUnitThatIsWhole)
{
    const IcuUserLocale locale({.words = "en_GB", .time = "en_GB"});
    const struct {
        std::chrono::microseconds difference;
        std::string text;
    } cases[] = {
        {-999ms, "now"},
        {-1s, "1 second ago"},
        {-days(1) + 1s, "23 hours ago"},
        {-days(31), "1 month ago"},
        {-days(365), "11 months ago"},
        {days(800), "in 2 years"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(locale.relativeTime(winter + each.difference, winter), each.text);
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
