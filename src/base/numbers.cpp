// SPDX-License-Identifier: MIT
#include "base/numbers.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <locale>
#include <sstream>
#include <string>
#include <system_error>

namespace chimewell {

namespace {

/// Takes the digits off the front of `text`.
std::string_view takeDigits(std::string_view& text)
{
    const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
    text.remove_prefix(digits.size());
    return digits;
}

bool take(std::string_view& text, char wanted)
{
    if (!text.starts_with(wanted)) return false;
    text.remove_prefix(1);
    return true;
}

/// As many digits as an exponent may have before every number but zero is out of range either way.
constexpr std::size_t exponentDigits = 9;

}

std::optional<std::int64_t> integral(std::string_view number)
{
    const bool negative = take(number, '-');
    const std::string_view whole = takeDigits(number);
    if (whole.empty() || (whole.size() > 1 && whole.front() == '0')) return std::nullopt;
    std::string digits(whole);
    std::ptrdiff_t exponent = 0;
    if (take(number, '.')) {
        const std::string_view fraction = takeDigits(number);
        if (fraction.empty()) return std::nullopt;
        digits += fraction;
        exponent -= static_cast<std::ptrdiff_t>(fraction.size());
    }
    if (take(number, 'e') || take(number, 'E')) {
        const bool down = take(number, '-');
        if (!down) take(number, '+');
        std::string_view shift = takeDigits(number);
        if (shift.empty()) return std::nullopt;
        shift.remove_prefix(std::min(shift.find_first_not_of('0'), shift.size()));
        if (shift.size() > exponentDigits) shift = "999999999";
        std::ptrdiff_t value = 0;
        std::from_chars(shift.data(), shift.data() + shift.size(), value);
        exponent += down ? -value : value;
    }
    if (!number.empty()) return std::nullopt;

    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.empty()) return 0;
    for (; exponent < 0 && digits.ends_with('0'); ++exponent)
        digits.pop_back();
    // 64 bits hold at most 19 digits.
    if (exponent < 0 || static_cast<std::size_t>(exponent) + digits.size() > 19) return std::nullopt;
    digits.append(static_cast<std::size_t>(exponent), '0');
    if (negative) digits.insert(digits.begin(), '-');

    std::int64_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

std::optional<double> decimal(std::string_view text)
{
    // A stream rather than from_chars: libc++ 19 has none for floating point.
    // The stream skips leading white space, and some read hexadecimal, "inf" and "nan".
    if (text.empty() || text.find_first_not_of("0123456789+-.eE") != std::string_view::npos)
        return std::nullopt;
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double value = 0;
    if (!(stream >> value) || stream.peek() != std::istringstream::traits_type::eof()) return std::nullopt;
    return value;
}

}
