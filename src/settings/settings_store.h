// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "base/text.h"
#include "ports/files.h"
#include "values/app_settings.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

namespace chimewell {

/// Owns the settings. Loads them once; each change applies in memory and then rewrites the whole file. A file
/// that can't be understood is replaced by the defaults.
class SettingsStore {
public:
    /// `folder` is the application's own. Saving creates it. The settings are usable afterwards even if
    /// loading or saving failed.
    SettingsStore(Files& files, std::filesystem::path folder);

    const AppSettings& settings() const { return settings_; }
    const std::filesystem::path& folder() const { return folder_; }
    const std::filesystem::path& fileURL() const { return file_; }
    /// Why the last save failed; absent if it succeeded. After a failure the change is in memory only.
    const std::optional<Phrase>& lastError() const { return lastError_; }

    /// Applies `change` and saves.
    void update(const std::function<void(AppSettings&)>& change);
    /// Applies `change` to the event's first entry and saves. Does nothing if there is no entry.
    void updateEvent(CanonicalEvent event, const std::function<void(EventSetting&)>& change);
    /// Applies `change` to the provider's first entry, or to a new one, and saves.
    void updateProvider(std::string_view providerId,
                        const std::function<void(ProviderInstallState&)>& change);
    void save();

    /// `callback` runs after each save, also after a failed one.
    [[nodiscard]] Subscription onChange(std::function<void()> callback);

private:
    void load();

    Files& files_;
    std::filesystem::path folder_;
    std::filesystem::path file_;
    AppSettings settings_;
    std::optional<Phrase> lastError_;
    Subscribers subscribers_;
};

}
