// SPDX-License-Identifier: MIT
#pragma once

#include "ports/translator.h"

namespace chimewell::test {

class EnglishTranslator final : public Translator {
public:
    std::string translate(const Phrase& phrase) const override { return english(phrase); }
    std::string language() const override { return tag; }

    std::string tag = "en"; ///< What it claims to speak.
};

}
