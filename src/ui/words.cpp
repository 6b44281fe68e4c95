// SPDX-License-Identifier: MIT
#include "ui/words.h"

#include <QCoreApplication>

namespace chimewell {

QString Words::operator()(const Phrase& phrase) const
{
    return qString(translate(phrase));
}

std::string Words::translate(const Phrase& phrase) const
{
    return composed(phrase, [this](const Text& text, std::optional<std::int64_t> count) {
        // One is its own text; every other count has as many forms as the language needs.
        const bool isMany = count && *count != 1 && text.many();
        return QCoreApplication::translate("chimewell::texts", isMany ? text.many() : text.in(wording_),
                                           nullptr, isMany ? static_cast<int>(*count) : -1)
            .toStdString();
    });
}

QString qString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}
