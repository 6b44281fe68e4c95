// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/text.h"

#include <QString>

#include <string_view>

namespace chimewell {

/// Says texts in the user's language.
class Words {
public:
    explicit Words(Wording wording) : wording_(wording) {}

    QString operator()(const Phrase& phrase) const;
    /// A name that the core gives: of an event, or of a sound.
    static QString ofCore(std::string_view english);

private:
    Wording wording_;
};

/// Text of the core as Qt has it.
QString qString(std::string_view utf8);

}
