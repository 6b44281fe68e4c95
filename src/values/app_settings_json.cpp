// SPDX-License-Identifier: MIT
#include "values/app_settings_json.h"

#include "base/integral.h"
#include "base/iso8601.h"
#include "json/json_parser.h"
#include "json/json_value.h"
#include "json/json_writer.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace chimewell {

namespace {

using Kind = JSONValue::Kind;

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

/// Reads the members of one object into the fields of a record.
class Record {
public:
    explicit Record(const JSONValue& json) : json_(json), failed_(!json.is(Kind::object)) {}

    template<class T>
    void optional(std::string_view key, T& field)
    {
        const auto value = failed_ ? std::nullopt : json_.find(key);
        if (value && !value->is(Kind::null) && !read(*value, field)) failed_ = true;
    }

    template<class T>
    void required(std::string_view key, T& field)
    {
        const auto value = failed_ ? std::nullopt : json_.find(key);
        if (!value || !read(*value, field)) failed_ = true;
    }

    bool succeeded() const { return !failed_; }

private:
    const JSONValue& json_;
    bool failed_;
};

bool read(const JSONValue& json, EventSetting& setting)
{
    Record record(json);
    std::string name;
    record.required("event", name);
    const auto event = eventNamed(name);
    if (!event) return false;
    setting = EventSetting::defaultSetting(*event);
    record.optional("enabled", setting.enabled);
    record.optional("soundId", setting.soundId);
    record.optional("showPopup", setting.showPopup);
    record.optional("speak", setting.speak);
    record.optional("spokenPhrase", setting.spokenPhrase);
    record.optional("voiceIdentifier", setting.voiceIdentifier);
    return record.succeeded();
}

bool read(const JSONValue& json, ProviderInstallState& state)
{
    Record record(json);
    record.required("providerId", state.providerId);
    record.optional("installed", state.installed);
    record.optional("installedAt", state.installedAt);
    record.optional("settingsPath", state.settingsPath);
    record.optional("backupPath", state.backupPath);
    record.optional("hookVersion", state.hookVersion);
    return record.succeeded();
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

JSONValue toJSON(const EventSetting& setting);
JSONValue toJSON(const ProviderInstallState& state);

template<class T>
JSONValue toJSON(const std::vector<T>& list)
{
    std::vector<JSONValue> elements;
    elements.reserve(list.size());
    for (const T& element : list)
        elements.push_back(toJSON(element));
    return JSONValue::array(elements);
}

/// Collects the members of an object, whose keys are sorted at the end.
class Members {
public:
    template<class T>
    Members& add(std::string_view key, const T& value)
    {
        members_.push_back({std::string(key), toJSON(value)});
        return *this;
    }

    template<class T>
    Members& add(std::string_view key, const std::optional<T>& value)
    {
        return value ? add(key, *value) : *this;
    }

    JSONValue object()
    {
        std::ranges::sort(members_, {}, &JSONMember::key);
        return JSONValue::object(members_);
    }

private:
    std::vector<JSONMember> members_;
};

JSONValue toJSON(const EventSetting& setting)
{
    return Members()
        .add("event", std::string(rawName(setting.event)))
        .add("enabled", setting.enabled)
        .add("soundId", setting.soundId)
        .add("showPopup", setting.showPopup)
        .add("speak", setting.speak)
        .add("spokenPhrase", setting.spokenPhrase)
        .add("voiceIdentifier", setting.voiceIdentifier)
        .object();
}

JSONValue toJSON(const ProviderInstallState& state)
{
    return Members()
        .add("providerId", state.providerId)
        .add("installed", state.installed)
        .add("installedAt", state.installedAt)
        .add("settingsPath", state.settingsPath)
        .add("backupPath", state.backupPath)
        .add("hookVersion", state.hookVersion)
        .object();
}

}

std::optional<AppSettings> decodeSettings(std::string_view json)
{
    if (json.starts_with("\xEF\xBB\xBF")) json.remove_prefix(3); // a byte-order mark
    const auto parsed = parseJSON(json, LoneSurrogates::refuse);
    if (!parsed) return std::nullopt;

    AppSettings settings;
    Record record(*parsed);
    record.optional("schemaVersion", settings.schemaVersion);
    record.optional("events", settings.events);
    record.optional("globalMuted", settings.globalMuted);
    record.optional("launchAtLogin", settings.launchAtLogin);
    record.optional("providers", settings.providers);
    record.optional("remindersEnabled", settings.remindersEnabled);
    record.optional("reminderIntervalSeconds", settings.reminderIntervalSeconds);
    record.optional("reminderMaxCount", settings.reminderMaxCount);
    record.optional("hasCompletedOnboarding", settings.hasCompletedOnboarding);
    return record.succeeded() ? std::optional(std::move(settings)) : std::nullopt;
}

std::string encodeSettings(const AppSettings& settings)
{
    return writeJSON(Members()
                         .add("schemaVersion", settings.schemaVersion)
                         .add("events", settings.events)
                         .add("globalMuted", settings.globalMuted)
                         .add("launchAtLogin", settings.launchAtLogin)
                         .add("providers", settings.providers)
                         .add("remindersEnabled", settings.remindersEnabled)
                         .add("reminderIntervalSeconds", settings.reminderIntervalSeconds)
                         .add("reminderMaxCount", settings.reminderMaxCount)
                         .add("hasCompletedOnboarding", settings.hasCompletedOnboarding)
                         .object()) +
           "\n";
}

}
