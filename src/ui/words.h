// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "ports/translator.h"

#include <QString>

#include <string_view>

namespace chimewell {

/// Says phrases as the text that widgets take. To be copied; the translator outlives the copies.
class Words {
public:
    explicit Words(const Translator& translator) : translator_(&translator) {}

    QString operator()(const Phrase& phrase) const;

private:
    const Translator* translator_;
};

QString qString(std::string_view utf8);

}
