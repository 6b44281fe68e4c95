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

IcuUserLocale localeNamed(const std::string& name)
{
    return IcuUserLocale({.words = name, .time = name});
}

TEST(IcuUserLocale, SpeaksTheUsersLanguage)
{
    const EnvironmentVariable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    struct Case {
        std::string locale, time, twoMinutesAgo, oneHourAhead, shortly = "2 min. ago";
    };
    for (const Case& each : {
             Case{"en_GB.UTF-8", "14:05", "2 minutes ago", "in 1 hour", "2 min ago"},
             Case{"en_US.UTF-8", "2:05\u202FPM", "2 minutes ago", "in 1 hour"},
             Case{"de-AT", "14:05", "vor 2 Minuten", "in 1 Stunde", "vor 2 Min."},
             Case{"fr_FR@euro", "14:05", "il y a 2 minutes", "dans 1 heure", "il y a 2\u00A0min"},
             Case{"ar_EG.UTF-8", "٢:٠٥ م", "قبل دقيقتين", "خلال ساعة واحدة", "قبل دقيقتين"},
             Case{"C.UTF-8", "14:05", "2 minutes ago", "in 1 hour"},
             Case{"POSIX", "14:05", "2 minutes ago", "in 1 hour"},
             Case{"", "14:05", "2 minutes ago", "in 1 hour"},
         }) {
        const IcuUserLocale locale = localeNamed(each.locale);
        EXPECT_EQ(locale.shortTime(winter), each.time) << each.locale;
        EXPECT_EQ(locale.relativeTime(winter - 2min, winter), each.twoMinutesAgo) << each.locale;
        EXPECT_EQ(locale.relativeTime(winter + 1h, winter), each.oneHourAhead) << each.locale;
        EXPECT_EQ(locale.shortRelativeTime(winter - 2min, winter), each.shortly) << each.locale;
    }
}

TEST(IcuUserLocale, ChoosesTheLargestUnitThatIsWhole)
{
    const IcuUserLocale locale = localeNamed("en_GB");
    struct Case {
        std::chrono::microseconds difference;
        std::string text;
    };
    for (const Case& each : {
             Case{0s, "now"},
             Case{-999ms, "now"},
             Case{999ms, "now"},
             Case{-1s, "1 second ago"},
             Case{-59999ms, "59 seconds ago"},
             Case{-60s, "1 minute ago"},
             Case{-119s, "1 minute ago"},
             Case{-3599s, "59 minutes ago"},
             Case{-1h, "1 hour ago"},
             Case{-days(1) + 1s, "23 hours ago"},
             Case{-days(1), "1 day ago"},
             Case{-days(6), "6 days ago"},
             Case{-days(7), "1 week ago"},
             Case{-days(30), "4 weeks ago"},
             Case{-days(31), "1 month ago"},
             Case{-days(365), "11 months ago"},
             Case{-days(366), "1 year ago"},
             Case{5s, "in 5 seconds"},
             Case{days(800), "in 2 years"},
         })
        EXPECT_EQ(locale.relativeTime(winter + each.difference, winter), each.text);
}

TEST(IcuUserLocale, FollowsSummerTimeAndATravellingUser)
{
    const IcuUserLocale locale = localeNamed("de_DE");
    const EnvironmentVariable berlin("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(locale.shortTime(winter), "14:05");
    EXPECT_EQ(locale.shortTime(summer), "15:05");
    const EnvironmentVariable india("TZ", "IST-5:30");
    EXPECT_EQ(locale.shortTime(winter), "18:35");
}

TEST(IcuUserLocale, TakesTheStrongestVariableOfTheEnvironmentForTimes)
{
    const EnvironmentVariable language("LANG", "de_DE.UTF-8");
    const EnvironmentVariable all("LC_ALL", std::nullopt);
    const EnvironmentVariable unset("LC_TIME", "");
    EXPECT_EQ(IcuUserLocale::timeOfEnvironment(), "de_DE.UTF-8");
    const EnvironmentVariable time("LC_TIME", "en_GB.UTF-8");
    EXPECT_EQ(IcuUserLocale::timeOfEnvironment(), "en_GB.UTF-8");
    const EnvironmentVariable stronger("LC_ALL", "C");
    EXPECT_EQ(IcuUserLocale::timeOfEnvironment(), "C");
}

}
}
