// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "ports/translator.h"

#include <QString>
#include <QStringList>

#include <string>
#include <string_view>
#include <utility>

class QCoreApplication;

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

/// Installs the first of these languages that there is a translation for, English among them, and Qt's own
/// translation where there is one. Call it once, before the first window, with QLocale's uiLanguages().
/// Returns the tag of that language as in the list, or "en".
std::string installTranslation(QCoreApplication& application, const QStringList& languages);

/// Says phrases in the language of the installed translation.
class QtTranslator final : public Translator {
public:
    /// `language` is what `installTranslation` returned.
    QtTranslator(Wording wording, std::string language) : wording_(wording), language_(std::move(language)) {}

    std::string translate(const Phrase& phrase) const override;
    std::string language() const override { return language_; }

private:
    Wording wording_;
    std::string language_;
};

}
