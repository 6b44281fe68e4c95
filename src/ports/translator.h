// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <string>

namespace chimewell {

/// Says phrases in the language of the interface.
class Translator {
public:
    virtual ~Translator() = default;
    virtual std::string translate(const Phrase& phrase) const = 0;
    /// The language that phrases are said in, as a BCP 47 tag such as "de" or "en-GB".
    virtual std::string language() const = 0;
};

}
