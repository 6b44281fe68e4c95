// SPDX-License-Identifier: MIT
#include "settings/settings_store.h"

#include "support/memory_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

class SettingsStoreTest : public ::testing::Test {
protected:
    static constexpr char file[] = "/data/Chimewell/settings.json";
    SettingsStore open() { return {files, "/data/Chimewell"}; }

    MemoryFiles files;
};

TEST_F(SettingsStoreTest, WritesTheDefaultsAtFirstStart)
{
    const SettingsStore store = open();
    EXPECT_EQ(store.settings(), AppSettings());
    EXPECT_FALSE(store.lastError());
    EXPECT_TRUE(files.folders.contains("/data/Chimewell"));
    EXPECT_TRUE(files.contents.at(file).starts_with(R"({
  "events": [
    {
      "enabled": true,
      "event": "finished",
      "showPopup": true,
      "soundId": "Blow",
      "speak": false,
      "spokenPhrase": ""
    },
)")) << files.contents.at(file);
    EXPECT_TRUE(files.contents.at(file).ends_with(R"(
  "reminderIntervalSeconds": 180,
  "reminderMaxCount": 5,
  "remindersEnabled": true,
  "schemaVersion": 1
}
)")) << files.contents.at(file);
}

TEST_F(SettingsStoreTest, ReplacesAFileThatItCannotUseByTheDefaults)
{
    const std::string unusable[] = {
        "",
        "{",
        "[]",
        "null",
        "{} x",
        "\xFF",
        R"({"globalMuted": 1})",
        R"({"globalMuted": "true"})",
        R"({"schemaVersion": 1.5})",
        R"({"schemaVersion": 9223372036854775808})",
        R"({"schemaVersion": 1e999})",
        R"({"schemaVersion": 1e+-})",
        R"({"events": {}})",
        R"({"events": [1]})",
        R"({"events": [{}]})",
        R"({"events": [{"event": null}]})",
        R"({"events": [{"event": "Finished"}]})",
        R"({"events": [{"event": "finished", "soundId": 3}]})",
        R"({"events": [{"event": "finished", "spokenPhrase": "\ud83d"}]})",
        R"({"providers": [{"installed": true}]})",
        R"({"providers": [{"providerId": null}]})",
        R"({"providers": [{"providerId": "claude", "installedAt": "yesterday"}]})",
        R"({"providers": [{"providerId": "claude", "installedAt": 0}]})",
        std::string(1'000'000, '['),
    };
    SettingsStore fresh = open();
    const std::string defaults = files.contents.at(file);
    for (const auto& content : unusable) {
        files.contents[file] = content;
        EXPECT_EQ(open().settings(), AppSettings()) << content.substr(0, 80);
        EXPECT_EQ(files.contents.at(file), defaults) << content.substr(0, 80);
    }
}

TEST_F(SettingsStoreTest, FillsInWhatAFileLacksWithoutRewritingIt)
{
    const std::string content = R"({"events": [{"event": "error"}], "unknown": [1e5], "globalMuted": null})";
    files.contents[file] = content;
    SettingsStore store = open();
    EXPECT_EQ(files.contents.at(file), content);

    AppSettings expected;
    std::rotate(expected.events.begin(), expected.events.begin() + 3, expected.events.begin() + 4);
    EXPECT_EQ(store.settings(), expected);
    EXPECT_EQ(store.settings().events.front().soundId, "Basso");

    store.save();
    EXPECT_EQ(open().settings(), expected);
    EXPECT_FALSE(files.contents.at(file).contains("unknown"));
}

TEST_F(SettingsStoreTest, ReadsEveryForm)
{
    files.contents[file] = "\xEF\xBB\xBF"
                           R"({
        "schemaVersion": 7, "reminderIntervalSeconds": 6e1, "reminderMaxCount": 3.0, "remindersEnabled": false,
        "globalMuted": false, "globalMuted": true, "launchAtLogin": true, "hasCompletedOnboarding": true,
        "events": [
            {"event": "finished", "enabled": false, "soundId": "Tink", "showPopup": false, "speak": true,
             "spokenPhrase": "Fertig", "voiceIdentifier": "German"},
            {"event": "finished", "voiceIdentifier": null}
        ],
        "providers": [
            {"providerId": "other", "hookVersion": -2},
            {"providerId": "claude", "installed": true, "installedAt": "2026-03-01T14:00:00.5+0200",
             "settingsPath": "/a", "backupPath": "/b", "hookVersion": 4}
        ]})";
    const AppSettings settings = open().settings();

    EXPECT_EQ(settings.schemaVersion, 1);
    EXPECT_EQ(settings.reminderIntervalSeconds, 60);
    EXPECT_EQ(settings.reminderMaxCount, 3);
    EXPECT_FALSE(settings.remindersEnabled);
    EXPECT_TRUE(settings.globalMuted);
    EXPECT_TRUE(settings.launchAtLogin);
    EXPECT_TRUE(settings.hasCompletedOnboarding);
    ASSERT_EQ(settings.events.size(), 9u); // both entries of "finished" stay
    EXPECT_EQ(settings.events[0], (EventSetting{.event = CanonicalEvent::finished,
                                                .enabled = false,
                                                .soundId = "Tink",
                                                .showPopup = false,
                                                .speak = true,
                                                .spokenPhrase = "Fertig",
                                                .voiceIdentifier = "German"}));
    EXPECT_EQ(settings.events[1], EventSetting::defaultSetting(CanonicalEvent::finished));
    ASSERT_EQ(settings.providers.size(), 4u);
    EXPECT_EQ(settings.providers[0], (ProviderInstallState{.providerId = "other", .hookVersion = -2}));
    using namespace std::chrono;
    EXPECT_EQ(settings.providers[1],
              (ProviderInstallState{.providerId = "claude",
                                    .installed = true,
                                    .installedAt = sys_days{2026y / March / 1} + 12h + 500ms,
                                    .settingsPath = "/a",
                                    .backupPath = "/b",
                                    .hookVersion = 4}));
}

TEST_F(SettingsStoreTest, KeepsEveryValueThroughTheFile)
{
    SettingsStore store = open();
    store.update([](AppSettings& settings) {
        settings.reminderIntervalSeconds = std::numeric_limits<std::int64_t>::min();
        settings.reminderMaxCount = std::numeric_limits<std::int64_t>::max();
        settings.globalMuted = true;
        settings.events[0].spokenPhrase = "a \"b\" \\ \n \x01 ü";
        settings.events[0].voiceIdentifier = "";
        settings.providers[0].installedAt = Date(std::chrono::seconds(1700000000));
        settings.providers[0].backupPath = "/x";
    });
    EXPECT_EQ(open().settings(), store.settings());
}

TEST_F(SettingsStoreTest, ReportsAFailedSaveAndKeepsTheChange)
{
    SettingsStore store = open();
    int told = 0;
    const Subscription subscription = store.onChange([&] { ++told; });

    files.full = true;
    store.update([](AppSettings& settings) { settings.globalMuted = true; });
    EXPECT_EQ(english(*store.lastError()), "Failed to save settings: No space left on device");
    EXPECT_TRUE(store.settings().globalMuted);

    files.full = false;
    files.folders.clear(); // somebody removed it
    store.save();
    EXPECT_FALSE(store.lastError());
    EXPECT_TRUE(files.folders.contains("/data/Chimewell"));
    EXPECT_EQ(told, 2);
}

TEST_F(SettingsStoreTest, StartsWithADiskThatFails)
{
    files.unreadable = true;
    files.full = true;
    const SettingsStore store = open();
    EXPECT_EQ(store.settings(), AppSettings());
    EXPECT_EQ(english(*store.lastError()), "Failed to save settings: No space left on device");
}

TEST_F(SettingsStoreTest, UpdatesTheFirstEntry)
{
    SettingsStore store = open();
    store.update([](AppSettings& settings) { settings.events.push_back(settings.events.front()); });
    store.updateEvent(CanonicalEvent::finished, [](EventSetting& setting) { setting.soundId = "Frog"; });
    EXPECT_EQ(store.settings().events.front().soundId, "Frog");
    EXPECT_EQ(store.settings().events.back().soundId, "Blow");

    store.updateProvider("codex", [](ProviderInstallState& state) { state.installed = true; });
    store.updateProvider("new", [](ProviderInstallState& state) { state.hookVersion = 2; });
    EXPECT_TRUE(store.settings().providers[2].installed);
    EXPECT_EQ(store.settings().providers.back(),
              (ProviderInstallState{.providerId = "new", .hookVersion = 2}));
    EXPECT_EQ(open().settings(), store.settings());

    store.update([](AppSettings& settings) { settings.events.clear(); });
    const int writes = files.writes;
    store.updateEvent(CanonicalEvent::error, [](EventSetting& setting) { setting.enabled = true; });
    EXPECT_EQ(files.writes, writes);
}

}
