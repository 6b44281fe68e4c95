// SPDX-License-Identifier: MIT
#pragma once

#include "base/time_point.h"

#include <string>

namespace chimewell {

/// The user's language and habits.
class UserLocale {
public:
    virtual ~UserLocale() = default;
    /// ISO 639 code such as "de"; empty when the locale has none.
    virtual std::string languageCode() const = 0;
    /// Short time without date in the user's time zone, for example 14:05.
    virtual std::string shortTime(Date date) const = 0;
    /// `date` seen from `now` in full words, for example "2 minutes ago".
    virtual std::string relativeTime(Date date, Date now) const = 0;
    /// The same where there is little room, for example "2 min. ago".
    virtual std::string shortRelativeTime(Date date, Date now) const = 0;
};

}
