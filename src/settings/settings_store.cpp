// SPDX-License-Identifier: MIT
#include "settings/settings_store.h"

#include "values/app_settings.h"
#include "values/texts.h"

#include <algorithm>
#include <utility>

namespace chimewell {

SettingsStore::SettingsStore(Files& files, std::filesystem::path folder)
    : files_(files),
      folder_(std::move(folder)),
      file_(folder_ / "settings.json")
{
    load();
}

void SettingsStore::load()
{
    if (const auto bytes = files_.read(file_)) {
        if (auto decoded = decodeSettings(*bytes)) {
            decoded->normalize();
            settings_ = std::move(*decoded);
            return;
        }
    }
    save();
}

void SettingsStore::save()
{
    auto written = files_.createFolders(folder_);
    if (written) written = files_.replace(file_, encodeSettings(settings_));
    lastError_ =
        written ? std::nullopt : std::optional(Phrase(texts::couldNotSave, {written.error().description}));
    subscribers_.notify();
}

void SettingsStore::update(const std::function<void(AppSettings&)>& change)
{
    change(settings_);
    save();
}

void SettingsStore::updateEvent(CanonicalEvent event, const std::function<void(EventSetting&)>& change)
{
    EventSetting* const entry = settings_.setting(event);
    if (!entry) return;
    change(*entry);
    save();
}

void SettingsStore::updateProvider(std::string_view providerId,
                                   const std::function<void(ProviderInstallState&)>& change)
{
    auto entry = std::ranges::find(settings_.providers, providerId, &ProviderInstallState::providerId);
    if (entry == settings_.providers.end())
        entry = settings_.providers.insert(entry, {.providerId = std::string(providerId)});
    change(*entry);
    save();
}

Subscription SettingsStore::onChange(std::function<void()> callback)
{
    return subscribers_.add(std::move(callback));
}

}
