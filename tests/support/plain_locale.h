// SPDX-License-Identifier: MIT
#pragma once

#include "ports/user_locale.h"

namespace chimewell::test {

/// A locale whose texts show what was asked.
class PlainLocale : public UserLocale {
public:
    std::string shortRelativeTime(Date date, Date now) const override { return relativeTime(date, now); }

    std::string shortTime(Date) const override { return "14:05"; }
    std::string relativeTime(Date date, Date now) const override
    {
        return std::to_string(std::chrono::floor<std::chrono::seconds>(now - date).count()) + " seconds ago";
    }
};

}
