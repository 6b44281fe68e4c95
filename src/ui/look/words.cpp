// SPDX-License-Identifier: MIT
#include "ui/look/words.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QString>
#include <QTranslator>

#include <cstdint>
#include <optional>

namespace chimewell {

namespace {

bool install(QCoreApplication& application, const QLocale& language, const QString& name,
             const QString& folder)
{
    auto* translator = new QTranslator(&application);
    if (translator->load(language, name, QStringLiteral("_"), folder))
        return QCoreApplication::installTranslator(translator);
    delete translator;
    return false;
}

}

QString Words::operator()(const Phrase& phrase) const
{
    QString text = qString(translator_->translate(phrase));
    // Where a text of ours begins with a foreign word, such as "Chimewell", Qt would take that word's
    // direction for the whole sentence, and put its full stop at the wrong end.
    const bool isLeftwards = QGuiApplication::isRightToLeft();
    constexpr char16_t leftToRightMark = u'\u200E', rightToLeftMark = u'\u200F';
    if (phrase.text && text.isRightToLeft() != isLeftwards)
        text.prepend(QChar(isLeftwards ? rightToLeftMark : leftToRightMark));
    return text;
}

QString qString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string installTranslation(QCoreApplication& application, const QStringList& languages)
{
    // One after another: given the list, Qt would skip English, which has no file.
    for (const QString& name : languages) {
        const QLocale language(name);
        if (language.language() == QLocale::English) return name.toStdString();
        if (!install(application, language, QStringLiteral("chimewell"), QStringLiteral(":/translations")))
            continue;
        install(application, language, QStringLiteral("qtbase"),
                QLibraryInfo::path(QLibraryInfo::TranslationsPath));
        return name.toStdString();
    }
    return "en";
}

std::string QtTranslator::translate(const Phrase& phrase) const
{
    return composed(phrase, [this](const Text& text, std::optional<std::int64_t> count) {
        // The text for one is separate; other counts have as many forms as the language needs.
        const bool isMany = count && *count != 1 && text.many();
        return QCoreApplication::translate("chimewell::texts", isMany ? text.many() : text.in(wording_),
                                           nullptr, isMany ? static_cast<int>(*count) : -1)
            .toStdString();
    });
}

}
