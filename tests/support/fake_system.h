// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ports/application_activation.h"
#include "ports/login_item.h"
#include "ports/user_locale.h"
#include "ports/workspace.h"
#include "support/fake_time.h"
#include "support/fixed_places.h"
#include "support/memory_files.h"
#include "support/recording_audio.h"
#include "support/recording_notification_center.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace chimewell::test {

class EnglishTranslator final : public Translator {
public:
    std::string translate(const Phrase& phrase) const override { return english(phrase); }
    std::string language() const override { return tag; }

    std::string tag = "en"; ///< What it claims to speak.
};

/// Chance that is none: `next` is drawn every time, and identifiers count up.
class FixedRandom : public Random {
public:
    double unit() override { return next; }
    std::string uuid() override { return "uuid-" + std::to_string(++uuids); }

    double next = 0;
    int uuids = 0;
};

/// A locale whose texts show what was asked.
class PlainLocale : public UserLocale {
public:
    std::string shortRelativeTime(Date date, Date now) const override { return relativeTime(date, now); }
    std::string shortTime(Date) const override { return "14:05"; }
    std::string relativeTime(Date date, Date now) const override
    {
        return std::to_string(std::chrono::floor<std::chrono::seconds>(now - date).count()) + " seconds ago";
    }
};

/// Keeps what the application asked for.
class RecordingActivation : public ApplicationActivation {
public:
    void setPolicy(ActivationPolicy policy) override { policies.push_back(policy); }
    void activate() override { ++activations; }

    std::vector<ActivationPolicy> policies;
    int activations = 0;
};

/// A login item that is what it was told to be, unless it refuses.
class RecordingLoginItem : public LoginItem {
public:
    bool isEnabled() const override { return enabled; }
    std::expected<void, Phrase> registerItem() override { return set(true); }
    std::expected<void, Phrase> unregisterItem() override { return set(false); }

    bool enabled = false;
    bool refuses = false;

private:
    std::expected<void, Phrase> set(bool wanted)
    {
        if (refuses) return std::unexpected(std::string("Operation not permitted"));
        enabled = wanted;
        return {};
    }
};

/// Remembers what was asked of the desktop, as "open kitty", "folder /x", "reveal /x".
class RecordingWorkspace : public Workspace {
public:
    bool isInstalled(const TerminalApplication& application) const override
    {
        return installed.contains(application.bundleIdentifier);
    }
    void openActivating(const TerminalApplication& application) override
    {
        asked.push_back("open " + std::string(application.bundleIdentifier));
    }
    bool activateRunning(const TerminalApplication& application) override
    {
        asked.push_back("activate " + std::string(application.bundleIdentifier));
        return running.contains(application.bundleIdentifier);
    }
    void findKind(const std::filesystem::path& path, std::function<void(FileKind)> done) override
    {
        // A system reads a path up to its first NUL.
        if (const auto found = paths.find(path.c_str()); found != paths.end()) done(found->second);
    }
    bool openFolder(const std::filesystem::path& folder) override
    {
        if (!fileManager) return false;
        asked.push_back("folder " + folder.string());
        return true;
    }
    void reveal(const std::filesystem::path& path) override { asked.push_back("reveal " + path.string()); }

    std::set<std::string_view> installed;
    std::set<std::string_view> running;
    std::map<std::filesystem::path, FileKind> paths;
    bool fileManager = true;
    std::vector<std::string> asked;
};

/// A system of fakes for the services to run on.
struct FakeSystem {
    FakeTime time;
    MemoryFiles files;
    FixedRandom random;
    PlainLocale locale;
    EnglishTranslator translator;
    FixedHome home;
    OneResource resources;
    RecordingSounds sounds;
    RecordingSpeech speech;
    RecordingNotificationCenter center;
    RecordingWorkspace workspace;
    RecordingLoginItem loginItem;
    RecordingActivation activation;

    Ports ports() { return ports(translator); }
    Ports ports(const Translator& words)
    {
        return {.files = files,
                .clock = time,
                .timers = time,
                .random = random,
                .locale = locale,
                .translator = words,
                .folders = home,
                .resources = resources,
                .sounds = sounds,
                .speech = speech,
                .notifications = center,
                .workspace = workspace,
                .loginItem = loginItem,
                .activation = activation};
    }
};

}
