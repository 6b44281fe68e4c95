// SPDX-License-Identifier: MIT
#pragma once

#include "values/canonical_event.h"

#include <string>
#include <string_view>

namespace chimewell {

/// Writes an event URL. Its text is ASCII whatever the values hold: all but letters, digits and `-._~` is
/// percent-encoded, each byte that is not UTF-8 becomes U+FFFD, and NUL is left out.
class EventUrlBuilder {
public:
    /// `provider` stands in the URL as it is.
    EventUrlBuilder(CanonicalEvent event, std::string_view provider);

    /// Appends `key`, as it is, and `value`, cut to `maxValueBytes` at a character's end; an empty value is
    /// left out.
    void add(std::string_view key, std::string_view value);
    std::string text() && { return std::move(text_); }

private:
    std::string text_;
};

}
