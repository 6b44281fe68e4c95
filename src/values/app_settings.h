// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"
#include "base/text.h"
#include "values/canonical_event.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// How one event alerts.
struct EventSetting {
    CanonicalEvent event = CanonicalEvent::finished;
    bool enabled = false;
    std::string soundId; ///< A `SoundOption`; an unknown one plays nothing.
    bool showPopup = false;
    bool speak = false;
    std::string spokenPhrase; ///< Blank: the event's default phrase is spoken.
    std::optional<std::string> voiceIdentifier = std::nullopt; ///< Absent: the default voice.
    bool operator==(const EventSetting&) const = default;

    static EventSetting defaultSetting(CanonicalEvent event);
    /// The user's phrase as it was written, else the event's own.
    Phrase phraseToSpeak() const;
};

/// What we did to one agent's configuration file.
struct ProviderInstallState {
    std::string providerId;
    bool installed = false;
    std::optional<Date> installedAt = std::nullopt;
    std::optional<std::string> settingsPath = std::nullopt; ///< The file that was edited.
    std::optional<std::string> backupPath = std::nullopt;   ///< The copy made before.
    std::int64_t hookVersion = 0;
    bool operator==(const ProviderInstallState&) const = default;
};

/// Everything the user chose. The one record that is kept between runs.
struct AppSettings {
    std::int64_t schemaVersion = currentSchemaVersion;
    std::vector<EventSetting> events = defaultEvents();
    bool globalMuted = false;
    bool launchAtLogin = false;
    std::vector<ProviderInstallState> providers = defaultProviders();
    bool remindersEnabled = true;
    std::int64_t reminderIntervalSeconds = 180;
    std::int64_t reminderMaxCount = 5;
    bool hasCompletedOnboarding = false;
    bool operator==(const AppSettings&) const = default;

    /// Appends what is missing: an entry for each event and for each known provider. Entries are
    /// never removed, changed or moved. Sets the schema version.
    void normalize();

    /// The first entry of the event; null when there is none.
    const EventSetting* setting(CanonicalEvent event) const;
    EventSetting* setting(CanonicalEvent event);
    /// Whether one of the known providers is connected, by the first record of each.
    bool anyProviderInstalled() const;

    static constexpr std::int64_t currentSchemaVersion = 1;

private:
    static std::vector<EventSetting> defaultEvents();
    static std::vector<ProviderInstallState> defaultProviders();
};

/// The settings of a file, or nothing where it is not ours to read: no JSON, a value of the wrong
/// type, an event that does not exist. Missing keys take their defaults and unknown ones are
/// ignored, so that the file of an older or a newer build loads; not normalized.
std::optional<AppSettings> decodeSettings(std::string_view json);

/// Pretty-printed JSON with the keys in alphabetical order. Absent optional fields are left out.
std::string encodeSettings(const AppSettings& settings);

}
