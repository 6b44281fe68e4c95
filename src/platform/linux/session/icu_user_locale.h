// SPDX-License-Identifier: MIT
#pragma once

#include "ports/user_locale.h"

#include <memory>
#include <string>

namespace chimewell {

/// Formats times with ICU, in the language of the interface and the conventions of the POSIX locale.
class IcuUserLocale final : public UserLocale {
public:
    /// Each a BCP 47 tag or a POSIX name, for example "de-AT" or "de_DE.UTF-8". "C", "POSIX" and no name mean
    /// English words and times like 14:05.
    struct Names {
        std::string words;
        std::string time;
    };
    /// The locale for times that the environment names: LC_ALL, else LC_TIME, else LANG.
    static std::string timeOfEnvironment();

    explicit IcuUserLocale(Names names);
    ~IcuUserLocale() override;

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
