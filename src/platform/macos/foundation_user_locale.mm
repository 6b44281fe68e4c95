// SPDX-License-Identifier: MIT
#include "platform/macos/foundation_user_locale.h"

#include "platform/macos/foundation.h"

namespace chimewell {

namespace {

NSDate* foundationDate(Date date)
{
    return
        [NSDate dateWithTimeIntervalSince1970:std::chrono::duration<double>(date.time_since_epoch()).count()];
}

NSDateFormatter* shortTimeFormatter()
{
    NSDateFormatter* const formatter = [[NSDateFormatter alloc] init];
    formatter.dateStyle = NSDateFormatterNoStyle;
    formatter.timeStyle = NSDateFormatterShortStyle;
    formatter.timeZone = NSTimeZone.localTimeZone; // follows a user who travels
    return formatter;
}

NSRelativeDateTimeFormatter* relativeFormatter(NSRelativeDateTimeFormatterUnitsStyle units)
{
    NSRelativeDateTimeFormatter* const formatter = [[NSRelativeDateTimeFormatter alloc] init];
    formatter.dateTimeStyle = NSRelativeDateTimeFormatterStyleNamed; // "now" rather than "in 0 seconds"
    formatter.unitsStyle = units;
    return formatter;
}

}

struct FoundationUserLocale::Formatters {
    NSDateFormatter* time = shortTimeFormatter();
    NSRelativeDateTimeFormatter* relative = relativeFormatter(NSRelativeDateTimeFormatterUnitsStyleFull);
    NSRelativeDateTimeFormatter* shortRelative =
        relativeFormatter(NSRelativeDateTimeFormatterUnitsStyleShort);
};

FoundationUserLocale::FoundationUserLocale() : formatters_(std::make_unique<Formatters>()) {}

FoundationUserLocale::~FoundationUserLocale() = default;

std::string FoundationUserLocale::shortTime(Date date) const
{
    return utf8([formatters_->time stringFromDate:foundationDate(date)]);
}

std::string FoundationUserLocale::relativeTime(Date date, Date now) const
{
    return utf8([formatters_->relative localizedStringForDate:foundationDate(date)
                                               relativeToDate:foundationDate(now)]);
}

std::string FoundationUserLocale::shortRelativeTime(Date date, Date now) const
{
    return utf8([formatters_->shortRelative localizedStringForDate:foundationDate(date)
                                                    relativeToDate:foundationDate(now)]);
}

}
