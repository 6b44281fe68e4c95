// SPDX-License-Identifier: MIT
#include "ui/words.h"

#include <QCoreApplication>

#include <string>

namespace chimewell {

QString Words::operator()(const Phrase& phrase) const
{
    // One is its own text; every other count has as many forms as the language needs.
    const bool isMany = phrase.count && *phrase.count != 1 && phrase.text.many();
    const char* english = isMany ? phrase.text.many() : phrase.text.in(wording_);
    const QString format = QCoreApplication::translate("chimewell::texts", english, nullptr,
                                                       isMany ? static_cast<int>(*phrase.count) : -1);
    return qString(filled(format.toStdString(), phrase));
}

QString Words::ofCore(std::string_view english)
{
    return QCoreApplication::translate("chimewell", std::string(english).c_str());
}

QString qString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}
