// SPDX-License-Identifier: MIT
#include "values/app_settings.h"

#include "base/date_time.h"
#include "base/numbers.h"
#include "base/unicode_text.h"
#include "base/utf8.h"
#include "values/provider.h"
#include "json/json_text.h"
#include "json/json_value.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace chimewell {

namespace {

using Kind = JSONValue::Kind;

constexpr std::array defaultProviderOrder = {claudeProvider, cursorProvider, codexProvider};
static_assert(std::ranges::is_permutation(defaultProviderOrder, knownProviders), "a provider has no record");

// What the file holds: `visit` gets the key and the field of every member of a record.

void visitFields(auto& setting, const auto& visit)
    requires requires { setting.soundId; }
{
    visit("event", setting.event);
    visit("enabled", setting.enabled);
    visit("soundId", setting.soundId);
    visit("showPopup", setting.showPopup);
    visit("speak", setting.speak);
    visit("spokenPhrase", setting.spokenPhrase);
    visit("voiceIdentifier", setting.voiceIdentifier);
}

void visitFields(auto& state, const auto& visit)
    requires requires { state.providerId; }
{
    visit("providerId", state.providerId);
    visit("installed", state.installed);
    visit("installedAt", state.installedAt);
    visit("settingsPath", state.settingsPath);
    visit("backupPath", state.backupPath);
    visit("hookVersion", state.hookVersion);
}

void visitFields(auto& settings, const auto& visit)
    requires requires { settings.globalMuted; }
{
    visit("schemaVersion", settings.schemaVersion);
    visit("events", settings.events);
    visit("globalMuted", settings.globalMuted);
    visit("launchAtLogin", settings.launchAtLogin);
    visit("providers", settings.providers);
    visit("remindersEnabled", settings.remindersEnabled);
    visit("reminderIntervalSeconds", settings.reminderIntervalSeconds);
    visit("reminderMaxCount", settings.reminderMaxCount);
    visit("hasCompletedOnboarding", settings.hasCompletedOnboarding);
}

// Each `read` returns false where the value is not of the field's type, and leaves the field alone then.

bool read(const JSONValue& json, bool& field)
{
    if (!json.is(Kind::boolean)) return false;
    field = json.isTrue();
    return true;
}

bool read(const JSONValue& json, std::int64_t& field)
{
    const auto value = json.is(Kind::number) ? integral(json.text()) : std::nullopt;
    if (value) field = *value;
    return value.has_value();
}

bool read(const JSONValue& json, std::string& field)
{
    if (!json.is(Kind::string)) return false;
    field = json.text();
    return true;
}

bool read(const JSONValue& json, Date& field)
{
    const auto date = json.is(Kind::string) ? parseIso8601(json.text()) : std::nullopt;
    if (date) field = *date;
    return date.has_value();
}

bool read(const JSONValue& json, CanonicalEvent& field)
{
    const auto event = eventNamed(json.is(Kind::string) ? json.text() : std::string_view());
    if (event) field = *event;
    return event.has_value();
}

bool read(const JSONValue& json, EventSetting& setting);
bool read(const JSONValue& json, ProviderInstallState& state);

template<class T>
bool read(const JSONValue& json, std::optional<T>& field)
{
    return read(json, field.emplace());
}

template<class T>
bool read(const JSONValue& json, std::vector<T>& field)
{
    if (!json.is(Kind::array)) return false;
    field.clear();
    for (const JSONValue& element : json.elements())
        if (!read(element, field.emplace_back())) return false;
    return true;
}

/// A member that is missing, or null, leaves its field alone.
bool readFields(const JSONValue& json, auto& record)
{
    bool fits = json.is(Kind::object);
    visitFields(record, [&](std::string_view key, auto& field) {
        const auto value = json.find(key);
        if (fits && value && !value->is(Kind::null)) fits = read(*value, field);
    });
    return fits;
}

bool read(const JSONValue& json, EventSetting& setting)
{
    const auto event = json.find("event");
    if (!event || !read(*event, setting.event)) return false;
    setting = EventSetting::defaultSetting(setting.event);
    return readFields(json, setting);
}

bool read(const JSONValue& json, ProviderInstallState& state)
{
    const auto identifier = json.find("providerId");
    return identifier && read(*identifier, state.providerId) && readFields(json, state);
}

JSONValue toJSON(bool value)
{
    return JSONValue::boolean(value);
}

JSONValue toJSON(std::int64_t value)
{
    return JSONValue::number(std::to_string(value));
}

JSONValue toJSON(const std::string& value)
{
    return JSONValue::string(value);
}

JSONValue toJSON(Date value)
{
    return JSONValue::string(iso8601(value));
}

JSONValue toJSON(CanonicalEvent value)
{
    return JSONValue::string(rawName(value));
}

/// Absent fields are left out, and the keys are sorted.
JSONValue objectOf(const auto& record);

template<class T>
JSONValue toJSON(const std::vector<T>& records)
{
    std::vector<JSONValue> elements;
    elements.reserve(records.size());
    for (const T& record : records)
        elements.push_back(objectOf(record));
    return JSONValue::array(elements);
}

JSONValue objectOf(const auto& record)
{
    std::vector<JSONMember> members;
    visitFields(record, [&](std::string_view key, const auto& field) {
        if constexpr (requires { field.has_value(); }) {
            if (field) members.push_back({std::string(key), toJSON(*field)});
        } else {
            members.push_back({std::string(key), toJSON(field)});
        }
    });
    std::ranges::sort(members, {}, &JSONMember::key);
    return JSONValue::object(members);
}

}

EventSetting EventSetting::defaultSetting(CanonicalEvent event)
{
    return {.event = event,
            .enabled = enabledByDefault(event),
            .soundId = std::string(defaultSoundId(event)),
            .showPopup = enabledByDefault(event),
            .speak = false,
            .spokenPhrase = {}};
}

Phrase EventSetting::phraseToSpeak() const
{
    const std::string_view phrase = trimmed(spokenPhrase);
    return phrase.empty() ? defaultSpokenPhrase(event) : Phrase(phrase);
}

std::vector<EventSetting> AppSettings::defaultEvents()
{
    std::vector<EventSetting> events;
    events.reserve(allCanonicalEvents.size());
    for (const CanonicalEvent event : allCanonicalEvents)
        events.push_back(EventSetting::defaultSetting(event));
    return events;
}

std::vector<ProviderInstallState> AppSettings::defaultProviders()
{
    std::vector<ProviderInstallState> providers;
    providers.reserve(defaultProviderOrder.size());
    for (const std::string_view identifier : defaultProviderOrder)
        providers.push_back({.providerId = std::string(identifier)});
    return providers;
}

void AppSettings::normalize()
{
    for (const CanonicalEvent event : allCanonicalEvents)
        if (!setting(event)) events.push_back(EventSetting::defaultSetting(event));
    for (const std::string_view identifier : defaultProviderOrder)
        if (std::ranges::find(providers, identifier, &ProviderInstallState::providerId) == providers.end())
            providers.push_back({.providerId = std::string(identifier)});
    schemaVersion = currentSchemaVersion;
}

const EventSetting* AppSettings::setting(CanonicalEvent event) const
{
    const auto found = std::ranges::find(events, event, &EventSetting::event);
    return found == events.end() ? nullptr : &*found;
}

EventSetting* AppSettings::setting(CanonicalEvent event)
{
    const auto found = std::ranges::find(events, event, &EventSetting::event);
    return found == events.end() ? nullptr : &*found;
}

bool AppSettings::anyProviderInstalled() const
{
    return std::ranges::any_of(knownProviders, [this](std::string_view identifier) {
        const auto state = std::ranges::find(providers, identifier, &ProviderInstallState::providerId);
        return state != providers.end() && state->installed;
    });
}

std::optional<AppSettings> decodeSettings(std::string_view json)
{
    json.remove_prefix(byteOrderMarkSize(json));
    const auto parsed = parseJSON(json, LoneSurrogates::refuse);
    AppSettings settings;
    if (!parsed || !readFields(*parsed, settings)) return std::nullopt;
    return settings;
}

std::string encodeSettings(const AppSettings& settings)
{
    return writeJSON(objectOf(settings)) + "\n";
}

}
