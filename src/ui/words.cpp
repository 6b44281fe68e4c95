// SPDX-License-Identifier: MIT
#include "ui/words.h"

namespace chimewell {

QString Words::operator()(const Phrase& phrase) const
{
    return qString(translator_->translate(phrase));
}

QString qString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}
