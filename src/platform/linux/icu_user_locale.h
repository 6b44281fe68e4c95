// SPDX-License-Identifier: MIT
#pragma once

#include "ports/user_locale.h"

#include <memory>
#include <string>

namespace chimewell {

/// The user's language and habits from the POSIX locale, in the words of ICU.
class IcuUserLocale final : public UserLocale {
public:
    /// POSIX names, for example "de_DE.UTF-8". "C", "POSIX" and no name mean English words and times
    /// like 14:05.
    struct Names {
        std::string messages;
        std::string time;
        /// What the environment says: LC_ALL, else the category, else LANG.
        static Names fromEnvironment();
    };

    explicit IcuUserLocale(Names names);
    ~IcuUserLocale() override;

    std::string languageCode() const override;
    /// In the time zone that the system has at the moment of the call.
    std::string shortTime(Date date) const override;
    std::string relativeTime(Date date, Date now) const override;
    std::string shortRelativeTime(Date date, Date now) const override;

private:
    struct Formatters;
    const Formatters& formatters() const;

    Names names_;
    mutable std::unique_ptr<Formatters> formatters_; ///< Made at first use: that loads ICU's data.
};

}
