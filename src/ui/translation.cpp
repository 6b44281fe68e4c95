// SPDX-License-Identifier: MIT
#include "ui/translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QString>
#include <QTranslator>

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

std::string installTranslation(QCoreApplication& application, const QStringList& languages)
{
    // One after another: left to itself, Qt would pass over English, for which there is no file.
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

}
