// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"

#include <string>

namespace chimewell {

/// How times are written for the user.
class UserLocale {
public:
    virtual ~UserLocale() = default;
    /// The time in the user's time zone, for example "14:05".
    virtual std::string shortTime(Date date) const = 0;
    /// `date` relative to `now`, for example "2 minutes ago".
    virtual std::string relativeTime(Date date, Date now) const = 0;
    /// The same, abbreviated, for example "2 min. ago".
    virtual std::string shortRelativeTime(Date date, Date now) const = 0;
};

}
