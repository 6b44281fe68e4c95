// SPDX-License-Identifier: MIT
#include "base/iso8601.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>

namespace chimewell {

namespace {

using namespace std::chrono_literals;

/// Takes the parts of a text from its front; once something is not there, `failed` stays set.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    int digits(std::size_t count)
    {
        if (rest_.size() < count) return fail();
        int value = 0;
        for (const char c : rest_.substr(0, count)) {
            if (c < '0' || c > '9') return fail();
            value = value * 10 + (c - '0');
        }
        rest_.remove_prefix(count);
        return value;
    }
    bool skip(char wanted)
    {
        if (!rest_.starts_with(wanted)) return false;
        rest_.remove_prefix(1);
        return true;
    }
    void expect(char wanted)
    {
        if (!skip(wanted)) fail();
    }
    bool atDigit() const { return !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9'; }
    bool atEnd() const { return rest_.empty(); }
    bool failed() const { return failed_; }
    int fail()
    {
        failed_ = true;
        return 0;
    }

private:
    std::string_view rest_;
    bool failed_ = false;
};

std::chrono::microseconds fraction(Scanner& scanner)
{
    std::chrono::microseconds value{0};
    std::chrono::microseconds unit = 100ms;
    if (!scanner.atDigit()) scanner.fail();
    while (scanner.atDigit()) {
        value += scanner.digits(1) * unit;
        unit /= 10;
    }
    return value;
}

std::chrono::minutes offset(Scanner& scanner)
{
    if (scanner.skip('Z')) return 0min;
    const bool west = scanner.skip('-');
    if (!west) scanner.expect('+');
    const int hours = scanner.digits(2);
    scanner.skip(':');
    const int minutes = scanner.digits(2);
    if (hours > 23 || minutes > 59) scanner.fail();
    const auto east = std::chrono::hours(hours) + std::chrono::minutes(minutes);
    return west ? -east : east;
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
    Scanner scanner(text);
    const int year = scanner.digits(4);
    scanner.expect('-');
    const auto month = static_cast<unsigned>(scanner.digits(2));
    scanner.expect('-');
    const auto day = static_cast<unsigned>(scanner.digits(2));
    scanner.expect('T');
    const int hour = scanner.digits(2);
    scanner.expect(':');
    const int minute = scanner.digits(2);
    scanner.expect(':');
    const int second = scanner.digits(2);
    const auto micros = scanner.skip('.') ? fraction(scanner) : 0us;
    const auto east = offset(scanner);

    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                           std::chrono::day(day)};
    if (scanner.failed() || !scanner.atEnd() || !date.ok()) return std::nullopt;
    if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return Date(std::chrono::sys_days(date)) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second) + micros - east;
}

}
