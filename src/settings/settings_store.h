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

/// The one owner of the live settings. Loaded once; every change is in memory at once and the whole
/// file is written after it. A file that cannot be read is replaced by the defaults on purpose.
class SettingsStore {
public:
    /// `folder` is the application's own; each save makes it if need be. Never fails: the settings are usable
    /// afterwards.
    SettingsStore(Files& files, std::filesystem::path folder);

    const AppSettings& settings() const { return settings_; }
    const std::filesystem::path& folder() const { return folder_; }
    const std::filesystem::path& fileURL() const { return file_; }
    /// Text of the last failed save; absent after a good one. The change stays in memory.
    const std::optional<Phrase>& lastError() const { return lastError_; }

    /// Applies `change` and saves.
    void update(const std::function<void(AppSettings&)>& change);
    /// Applies `change` to the event's first entry and saves. Without an entry: nothing, not saved.
    void updateEvent(CanonicalEvent event, const std::function<void(EventSetting&)>& change);
    /// Applies `change` to the provider's first entry, a new one if it has none, and saves.
    void updateProvider(std::string_view providerId,
                        const std::function<void(ProviderInstallState&)>& change);
    void save();

    /// Runs after each save, failed ones included.
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
