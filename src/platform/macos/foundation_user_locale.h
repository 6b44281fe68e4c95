// SPDX-License-Identifier: MIT
#pragma once

#include "ports/user_locale.h"

#include <memory>

namespace chimewell {

/// The user's language and habits, in the words of Foundation's formatters.
class FoundationUserLocale final : public UserLocale {
public:
    FoundationUserLocale();
    ~FoundationUserLocale() override;

    std::string shortTime(Date date) const override;
    std::string relativeTime(Date date, Date now) const override;
    std::string shortRelativeTime(Date date, Date now) const override;

private:
    struct Formatters;
    std::unique_ptr<Formatters> formatters_;
};

}
