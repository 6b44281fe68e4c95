// SPDX-License-Identifier: MIT
#include "ui/look/words.h"
#include "values/sound_option.h"
#include "values/texts.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

#include <string>

namespace chimewell::test {
namespace {

class TranslationTest : public ::testing::Test {
protected:
    ~TranslationTest() override { qDeleteAll(qApp->findChildren<QTranslator*>()); }

    static std::string said(const Phrase& phrase, Wording wording = Wording::linuxDesktop)
    {
        return QtTranslator(wording, "").translate(phrase);
    }
};

TEST_F(TranslationTest, SpeaksGermanToGermans)
{
    EXPECT_EQ(installTranslation(*qApp,
                                 {QStringLiteral("is-IS"), QStringLiteral("de-AT"), QStringLiteral("en-US")}),
              "de-AT");
    EXPECT_EQ(said(texts::general), "Allgemein");
    EXPECT_EQ(said(texts::reveal), "In Dateiverwaltung anzeigen");
    EXPECT_EQ(said(texts::reveal, Wording::macOS), "Im Finder zeigen");
    EXPECT_EQ(said({texts::everyMinutes, 1}), "Abstand: 1 Minute");
    EXPECT_EQ(said({texts::everyMinutes, 7}), "Abstand: 7 Minuten");
    EXPECT_EQ(said({texts::moreInSettings, 3}), "3 weitere in Einstellungen ▸ Verlauf");
    EXPECT_EQ(said({texts::installTitle, {std::string("%n Codex")}}), "Hooks für %n Codex installieren?");
    EXPECT_EQ(said(SoundOption::all().front().displayName), "Kein Ton");
}

TEST_F(TranslationTest, SpeaksEnglishToThoseWhoPreferItOrKnowNoLanguageOfOurs)
{
    for (const QStringList& languages :
         {QStringList{QStringLiteral("en-US"), QStringLiteral("de-DE")}, QStringList{QStringLiteral("is-IS")},
          QStringList{QStringLiteral("C")}}) {
        installTranslation(*qApp, languages);
        EXPECT_EQ(said(texts::general), "General");
        EXPECT_EQ(said({texts::everyMinutes, 1}), "Every 1 minute");
        EXPECT_EQ(said({texts::moreInSettings, 3}), "3 more in Settings ▸ Recent");
    }
}

}
}
