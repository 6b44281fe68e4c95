// SPDX-License-Identifier: MIT
#include "settings/settings_store.h"

#include "support/memory_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>

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
    const std::string& content = files.contents.at(file);
    EXPECT_TRUE(content.starts_with(
        "{\n  \"events\": [\n    {\n      \"enabled\": true,\n      \"event\": \"finished\""))
        << content;
    EXPECT_TRUE(content.ends_with(",\n  \"remindersEnabled\": true,\n  \"schemaVersion\": 1\n}\n"))
        << content;
}

TEST_F(SettingsStoreTest, ReplacesAFileThatItCannotUseByTheDefaults)
{
    const std::string unusable[] = {
        "",
        "{",
        "[]",
        "\xFF",
        R"({"globalMuted": 1})",
        R"({"schemaVersion": 1.5})",
        R"({"schemaVersion": 9223372036854775808})",
        R"({"events": [1]})",
        R"({"events": [{"event": "Finished"}]})",
        R"({"events": [{"event": "finished", "soundId": 3}]})",
        R"({"events": [{"event": "finished", "spokenPhrase": "\ud83d"}]})",
        R"({"providers": [{"installed": true}]})",
        R"({"providers": [{"providerId": "claude", "installedAt": "yesterday"}]})",
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
}

TEST_F(SettingsStoreTest, ReadsEveryFormAndKeepsEveryValue)
{
    files.contents[file] = "\xEF\xBB\xBF"
                           R"({
        "schemaVersion": 7, "reminderIntervalSeconds": 6e1, "reminderMaxCount": 9223372036854775807, "remindersEnabled": false,
        "globalMuted": false, "globalMuted": true, "launchAtLogin": true, "hasCompletedOnboarding": true,
        "events": [
            {"event": "finished", "enabled": false, "soundId": "Tink", "showPopup": false, "speak": true,
             "spokenPhrase": "a \"b\" \\ \n \u0001 ü", "voiceIdentifier": "German"},
            {"event": "finished", "voiceIdentifier": null}
        ],
        "providers": [
            {"providerId": "other", "hookVersion": -9223372036854775808},
            {"providerId": "claude", "installed": true, "installedAt": "2026-03-01T14:00:00+0200",
             "settingsPath": "/a", "backupPath": "/b", "hookVersion": 4}
        ]})";
    using namespace std::chrono;
    AppSettings expected;
    expected.reminderIntervalSeconds = 60;
    expected.reminderMaxCount = INT64_MAX;
    expected.remindersEnabled = false;
    expected.globalMuted = expected.launchAtLogin = expected.hasCompletedOnboarding = true;
    expected.events.insert(expected.events.begin(), {CanonicalEvent::finished, false, "Tink", false, true,
                                                     "a \"b\" \\ \n \x01 ü", "German"}); // both stay
    expected.providers = {{.providerId = "other", .hookVersion = INT64_MIN},
                          {"claude", true, sys_days{2026y / March / 1} + 12h, "/a", "/b", 4},
                          {.providerId = "cursor"},
                          {.providerId = "codex"}};
    SettingsStore store = open();
    EXPECT_EQ(store.settings(), expected);
    store.save();
    EXPECT_EQ(open().settings(), expected);
}

TEST_F(SettingsStoreTest, ReportsAFailedSaveAndKeepsTheChange)
{
    files.unreadable = files.full = true;
    SettingsStore store = open();
    EXPECT_EQ(store.settings(), AppSettings());
    EXPECT_TRUE(store.lastError());
    int told = 0;
    const Subscription subscription = store.onChange([&] { ++told; });

    store.update([](AppSettings& settings) { settings.globalMuted = true; });
    EXPECT_EQ(english(*store.lastError()), "Failed to save settings: No space left on device");
    EXPECT_TRUE(store.settings().globalMuted);

    files.unreadable = files.full = false;
    files.folders.clear(); // somebody removed it
    store.save();
    EXPECT_FALSE(store.lastError());
    EXPECT_TRUE(files.folders.contains("/data/Chimewell"));
    EXPECT_EQ(told, 2);
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
    EXPECT_TRUE(store.settings().anyProviderInstalled());
    EXPECT_EQ(store.settings().providers.back().hookVersion, 2);
    EXPECT_EQ(open().settings(), store.settings());

    store.update([](AppSettings& settings) { settings.events.clear(); });
    const int writes = files.writes;
    store.updateEvent(CanonicalEvent::error, [](EventSetting& setting) { setting.enabled = true; });
    EXPECT_EQ(files.writes, writes);
}
}
