// SPDX-License-Identifier: MIT
#include "platform/linux/session/icu_user_locale.h"

#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/reldatefmt.h>
#include <unicode/timezone.h>

#include <time.h>

#include <cstdlib>
#include <string_view>
#include <utility>

namespace chimewell {
namespace {

std::string category(const char* name)
{
    for (const char* variable : {"LC_ALL", name, "LANG"})
        if (const char* value = std::getenv(variable); value && *value != '\0') return value;
    return {};
}

/// The ICU locale of that name, or `neutral` when the name has no language.
icu::Locale locale(const std::string& name, const icu::Locale& neutral)
{
    const std::string_view language = std::string_view(name).substr(0, name.find_first_of(".@"));
    if (language.empty() || language == "C" || language == "POSIX") return neutral;
    return icu::Locale::createCanonical(name.c_str());
}

std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    text.toUTF8String(result);
    return result;
}

struct Amount {
    double count;
    URelativeDateTimeUnit unit;
};

/// Rounded towards zero in the largest unit that fits at least once.
Amount largestUnit(std::chrono::seconds difference)
{
    // Months and years are those of the Gregorian calendar on average.
    constexpr std::pair<std::chrono::seconds, URelativeDateTimeUnit> units[] = {
        {std::chrono::years(1), UDAT_REL_UNIT_YEAR}, {std::chrono::months(1), UDAT_REL_UNIT_MONTH},
        {std::chrono::weeks(1), UDAT_REL_UNIT_WEEK}, {std::chrono::days(1), UDAT_REL_UNIT_DAY},
        {std::chrono::hours(1), UDAT_REL_UNIT_HOUR}, {std::chrono::minutes(1), UDAT_REL_UNIT_MINUTE},
    };
    for (const auto& [length, unit] : units)
        if (std::chrono::abs(difference) >= length) return {static_cast<double>(difference / length), unit};
    return {static_cast<double>(difference.count()), UDAT_REL_UNIT_SECOND};
}

std::string inWords(Date::duration difference, const icu::RelativeDateTimeFormatter& formatter,
                    UErrorCode error)
{
    const Amount amount = largestUnit(std::chrono::duration_cast<std::chrono::seconds>(difference));
    icu::UnicodeString text;
    if (amount.count == 0)
        formatter.format(UDAT_DIRECTION_PLAIN, UDAT_ABSOLUTE_NOW, text, error);
    else
        formatter.formatNumeric(amount.count, amount.unit, text, error);
    return U_SUCCESS(error) ? utf8(text) : std::string();
}

}

struct IcuUserLocale::Formatters {
    explicit Formatters(const Names& names)
        : relative(locale(names.words, icu::Locale::getEnglish()), error),
          shortRelative(locale(names.words, icu::Locale::getEnglish()), nullptr, UDAT_STYLE_SHORT,
                        UDISPCTX_CAPITALIZATION_NONE, error),
          time(icu::DateFormat::createTimeInstance(icu::DateFormat::kShort,
                                                   locale(names.time, icu::Locale::getRoot())))
    {
        if (time) time->setTimeZone(*icu::TimeZone::getGMT());
    }

    UErrorCode error = U_ZERO_ERROR;
    icu::RelativeDateTimeFormatter relative;
    icu::RelativeDateTimeFormatter shortRelative;
    std::unique_ptr<icu::DateFormat> time;
};

std::string IcuUserLocale::timeOfEnvironment()
{
    return category("LC_TIME");
}

IcuUserLocale::IcuUserLocale(Names names) : names_(std::move(names)) {}

IcuUserLocale::~IcuUserLocale() = default;

std::string IcuUserLocale::shortTime(Date date) const
{
    if (!formatters().time) return {};
    // The C library notices when the time zone changes; ICU keeps the zone that it read first. So the
    // formatter works in GMT and the date is moved by the zone's offset.
    const auto seconds = std::chrono::floor<std::chrono::seconds>(date.time_since_epoch());
    const time_t moment = seconds.count();
    tm local = {};
    ::tzset();
    if (!::localtime_r(&moment, &local)) return {};
    const auto moved = seconds + std::chrono::seconds(local.tm_gmtoff);
    icu::UnicodeString text;
    formatters().time->format(static_cast<UDate>(std::chrono::milliseconds(moved).count()), text);
    return utf8(text);
}

std::string IcuUserLocale::relativeTime(Date date, Date now) const
{
    return inWords(date - now, formatters().relative, formatters().error);
}

std::string IcuUserLocale::shortRelativeTime(Date date, Date now) const
{
    return inWords(date - now, formatters().shortRelative, formatters().error);
}

const IcuUserLocale::Formatters& IcuUserLocale::formatters() const
{
    if (!formatters_) formatters_ = std::make_unique<Formatters>(names_);
    return *formatters_;
}

}
