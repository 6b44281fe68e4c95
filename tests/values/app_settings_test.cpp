// SPDX-License-Identifier: MIT
#include "values/app_settings.h"

#include <gtest/gtest.h>

#include <vector>

namespace chimewell::test {

TEST(AppSettingsTest, KnowsWhetherAnAgentIsConnected)
{
    const struct {
        std::vector<ProviderInstallState> providers;
        bool installed;
    } cases[] = {
        {AppSettings().providers, false},
        {{}, false},
        {{{.providerId = "cursor", .installed = true}}, true},
        {{{.providerId = "other", .installed = true}}, false},
        {{{.providerId = "codex"}, {.providerId = "codex", .installed = true}},
         false}, // the first record counts
        {{{.providerId = "other"}, {.providerId = "codex", .installed = true}}, true},
    };
    for (const auto& c : cases) {
        AppSettings settings;
        settings.providers = c.providers;
        EXPECT_EQ(settings.anyProviderInstalled(), c.installed)
            << (c.providers.empty() ? "" : c.providers[0].providerId);
    }
}

TEST(AppSettingsTest, NormalizingKeepsWhatIsThere)
{
    AppSettings settings;
    settings.events = {EventSetting::defaultSetting(CanonicalEvent::error),
                       EventSetting::defaultSetting(CanonicalEvent::error)};
    settings.events[0].soundId = "Frog";
    settings.providers = {{.providerId = "other"}, {.providerId = "codex", .hookVersion = 9}};
    settings.schemaVersion = 3;
    settings.normalize();

    EXPECT_EQ(settings.events.size(), 9u);
    EXPECT_EQ(settings.events[0].soundId, "Frog");
    EXPECT_EQ(settings.events[1].event, CanonicalEvent::error);
    EXPECT_EQ(settings.events[2].event, CanonicalEvent::finished);
    ASSERT_EQ(settings.providers.size(), 4u);
    EXPECT_EQ(settings.providers[1].hookVersion, 9);
    EXPECT_EQ(settings.providers[2].providerId, "claude");
    EXPECT_EQ(settings.providers[3].providerId, "cursor");
    EXPECT_EQ(settings.schemaVersion, 1);
}

}
