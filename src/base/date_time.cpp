// SPDX-License-Identifier: MIT
#include "base/date_time.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace chimewell {

namespace {

using namespace std::chrono_literals;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Whether `text` is `form`, in which each 0 stands for any digit.
bool hasForm(std::string_view text, std::string_view form)
{
    return std::ranges::equal(text, form,
                              [](char c, char wanted) { return wanted == '0' ? isDigit(c) : c == wanted; });
}

/// The number that `count` digits spell.
int number(std::string_view text, std::size_t at, std::size_t count = 2)
{
    int value = 0;
    for (const char digit : text.substr(at, count))
        value = value * 10 + (digit - '0');
    return value;
}

/// How far east of UTC a zone such as Z, +02:00 or -0530 is.
std::optional<std::chrono::minutes> offset(std::string_view zone)
{
    if (zone == "Z") return 0min;
    const bool isWest = zone.starts_with('-');
    if (!isWest && !zone.starts_with('+')) return std::nullopt;
    if (!hasForm(zone.substr(1), "00:00") && !hasForm(zone.substr(1), "0000")) return std::nullopt;
    const int hours = number(zone, 1);
    const int minutes = number(zone, zone.size() - 2);
    if (hours > 23 || minutes > 59) return std::nullopt;
    const auto east = std::chrono::hours(hours) + std::chrono::minutes(minutes);
    return isWest ? -east : east;
}

}

std::string iso8601(Date date)
{
    const auto seconds = std::chrono::floor<std::chrono::seconds>(date);
    const auto day = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day ymd(day);
    const std::chrono::hh_mm_ss time(seconds - day);
    std::array<char, 64> text{};
    const int length =
        std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                      static_cast<int>(ymd.year()), static_cast<unsigned>(ymd.month()),
                      static_cast<unsigned>(ymd.day()), static_cast<int>(time.hours().count()),
                      static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return {text.data(), static_cast<std::size_t>(length)};
}

std::optional<Date> parseIso8601(std::string_view text)
{
    constexpr std::string_view form = "0000-00-00T00:00:00";
    if (!hasForm(text.substr(0, form.size()), form)) return std::nullopt;
    std::string_view rest = text.substr(form.size());
    std::chrono::microseconds fraction{0};
    if (rest.starts_with('.')) {
        rest.remove_prefix(1);
        const std::string_view digits =
            rest.substr(0, static_cast<std::size_t>(std::ranges::find_if_not(rest, isDigit) - rest.begin()));
        if (digits.empty()) return std::nullopt;
        std::chrono::microseconds unit = 100ms;
        for (const char digit : digits) {
            fraction += (digit - '0') * unit;
            unit /= 10;
        }
        rest.remove_prefix(digits.size());
    }
    const auto east = offset(rest);
    const std::chrono::year_month_day day{std::chrono::year(number(text, 0, 4)),
                                          std::chrono::month(static_cast<unsigned>(number(text, 5))),
                                          std::chrono::day(static_cast<unsigned>(number(text, 8)))};
    const int hour = number(text, 11);
    const int minute = number(text, 14);
    const int second = number(text, 17);
    if (!east || !day.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return Date(std::chrono::sys_days(day)) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second) + fraction - *east;
}

}
