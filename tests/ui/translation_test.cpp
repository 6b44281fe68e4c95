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

TEST(Translation, IsInTheFirstLanguageThatThereIs)
{
    struct Said {
        Phrase phrase;
        const char* german;
        const char* english;
        Wording wording = Wording::linuxDesktop;
    };
    const Said all[] = {
        {texts::reveal, "In Dateiverwaltung anzeigen", "Show in File Manager"},
        {texts::reveal, "Im Finder zeigen", "Reveal in Finder", Wording::macOS},
        {{texts::everyMinutes, 1}, "Abstand: 1 Minute", "Every 1 minute"},
        {{texts::everyMinutes, 7}, "Abstand: 7 Minuten", "Every 7 minutes"},
        {{texts::installTitle, {std::string("%n Codex")}},
         "Hooks für %n Codex installieren?",
         "Install %n Codex hooks?"},
        {SoundOption::all().front().displayName, "Kein Ton", "Silent"},
    };
    const std::pair<QStringList, std::string> users[] = {
        {{QStringLiteral("is-IS"), QStringLiteral("de-AT"), QStringLiteral("en-US")}, "de-AT"},
        {{QStringLiteral("en-US"), QStringLiteral("de-DE")}, "en-US"},
        {{QStringLiteral("is-IS")}, "en"},
    };
    for (const auto& [languages, expected] : users) {
        EXPECT_EQ(installTranslation(*qApp, languages), expected);
        for (const Said& said : all)
            EXPECT_EQ(QtTranslator(said.wording, expected).translate(said.phrase),
                      expected == "de-AT" ? said.german : said.english);
        qDeleteAll(qApp->findChildren<QTranslator*>());
    }
}

}
}
