// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <string>

namespace chimewell {

/// Translates phrases into the language of the interface.
class Translator {
public:
    virtual ~Translator() = default;
    virtual std::string translate(const Phrase& phrase) const = 0;
    /// That language as a BCP 47 tag, such as "de" or "en-GB".
    virtual std::string language() const = 0;
};

}
