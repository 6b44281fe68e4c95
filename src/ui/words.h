// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "ports/translator.h"

#include <QString>

#include <string>
#include <string_view>
#include <utility>

namespace chimewell {

/// Says phrases in the language of the translation that is installed (ui/translation.h).
class Words final : public Translator {
public:
    /// `language` is that translation's, as `installTranslation` told it.
    Words(Wording wording, std::string language) : wording_(wording), language_(std::move(language)) {}

    QString operator()(const Phrase& phrase) const;
    std::string translate(const Phrase& phrase) const override;
    std::string language() const override { return language_; }

private:
    Wording wording_;
    std::string language_;
};

/// Text of the core as Qt has it.
QString qString(std::string_view utf8);

}
