// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "base/text.h"
#include "hooks/hook_installer.h"
#include "ports/files.h"
#include "ports/timers.h"
#include "presentation/event_looks.h"
#include "settings/settings_store.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// What a pill says, by its colour too.
struct StatusPill {
    enum class Kind : std::uint8_t { installed, notInstalled, setupNeeded, neutral };
    Kind kind;
    Text text;
};

/// What can be done to an agent's file, each after a question.
enum class PendingAction : std::uint8_t { install, update, uninstall, restore };

/// The question before an action.
struct Confirmation {
    PendingAction action;
    Phrase title;
    Phrase message;
    Text confirm;
    /// Whether it takes away something, so that Cancel is the answer of somebody who is in a hurry.
    bool isDestructive = false;
    /// Whether what somebody else wrote goes with it.
    bool losesChanges = false;
    /// Headline of the entries that would change; nothing where that cannot be told.
    std::optional<Text> changesTitle = std::nullopt;
    std::vector<HookChange> changes = {};
};

/// One agent's card in the settings, and its row in the walkthrough: what its file says, what can be done,
/// and what came of it.
class ProviderCard {
public:
    struct Collaborators {
        HookInstaller& installer;
        SettingsStore& store;
        Files& files;
        Timers& timers;
    };
    explicit ProviderCard(Collaborators with);
    ProviderCard(const ProviderCard&) = delete;
    ProviderCard& operator=(const ProviderCard&) = delete;

    /// A line below the file's path.
    struct Note {
        std::string_view icon;
        Tone tone;
        Phrase text;
    };

    std::string_view providerId() const { return with_.installer.providerId(); }
    std::string_view displayName() const { return with_.installer.displayName(); }
    bool isBeta() const { return with_.installer.isBeta(); }
    const std::filesystem::path& file() const { return with_.installer.settingsFileURL(); }
    /// The same to be read, with "~" for the home folder.
    std::string shownFile() const;

    /// Asks the file again: agents and users change it without telling us.
    void refresh();
    [[nodiscard]] Subscription onChange(std::function<void()> callback);

    bool isAvailable() const { return with_.installer.isAvailable(); }
    StatusPill pill() const;
    bool isInstalled() const { return look_.status.kind == HookInstallStatus::Kind::installed; }
    bool isUpdateDue() const { return look_.update.has_value(); }
    /// Nothing is done for a second after an action: the backup of another one in the same second would
    /// take the name, and so the place, of the one before.
    bool isSettling() const { return settling_ != nullptr; }
    static constexpr std::chrono::seconds settlingTime{1};

    /// Also offered for a file with an error: trying says what is wrong.
    bool canInstall() const;
    bool canUninstall() const { return isInstalled() && !look_.isUsersChain; }
    bool canRestore() const { return look_.offersRestore; }
    /// What is to be known of this agent; nothing for most.
    std::optional<Text> agentNote() const;
    /// What is to be known of this file.
    std::optional<Note> notice() const;
    const std::optional<Text>& infoMessage() const { return infoMessage_; }
    std::optional<Phrase> errorMessage() const;

    Confirmation confirmation(PendingAction action) const;
    /// Once the question was answered with yes. The record of the outcome is stored. While settling, the
    /// latest action waits.
    void perform(PendingAction action);

    /// The file to show in the file manager; nothing, with a notice, where there is none yet.
    std::optional<std::filesystem::path> fileToReveal();
    /// What was said about the last action is no news any more.
    void clearMessages();

private:
    HookInstaller::Result<ProviderInstallState> run(PendingAction action);
    void settle();
    /// Takes back the messages about what is so no longer.
    void forgetOldMessages();
    ProviderInstallState record() const;

    Collaborators with_;
    HookLook look_;
    HookLook lookAfterAction_; ///< What the messages are about.
    bool nothingToReveal_ = false;
    std::optional<Text> infoMessage_;
    std::optional<Phrase> failure_; ///< Of the last action.
    std::unique_ptr<Timer> settling_;
    std::optional<PendingAction> waiting_;
    Subscribers subscribers_;
};

}
