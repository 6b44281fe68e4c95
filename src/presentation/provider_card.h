// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "base/text.h"
#include "hooks/hook_installer.h"
#include "hooks/hook_installers.h"
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

/// The entries one below the other, to be read. Where some go and others come, each line begins with "- " or
/// "+ "; otherwise the lines are exactly those of the file.
std::string changesText(const std::vector<HookChange>& changes);

/// One agent's card in the settings, and its row in the onboarding: what its file says, what can be done,
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
    /// True for a second after an action. Nothing is done meanwhile: backups are named by the second, and
    /// that of the next action would replace the one of this.
    bool isPausing() const { return pause_ != nullptr; }
    static constexpr std::chrono::seconds pauseTime{1};

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
    /// Once the question was answered with yes. The record of the outcome is stored. The
    /// latest action confirmed during a pause is performed after it.
    void perform(PendingAction action);

    /// The file to show in the file manager; nothing, with a notice, where there is none yet.
    std::optional<std::filesystem::path> fileToReveal();
    /// Clears the messages about the last action.
    void clearMessages();

private:
    HookInstaller::Result<ProviderInstallState> run(PendingAction action);
    void endPause();
    /// Clears the messages about a state of the file that has changed since.
    void clearOutdatedMessages();
    ProviderInstallState record() const;

    Collaborators with_;
    HookLook look_;
    HookLook lookAfterAction_; ///< What the messages are about.
    bool nothingToReveal_ = false;
    std::optional<Text> infoMessage_;
    std::optional<Phrase> failure_; ///< Of the last action.
    std::unique_ptr<Timer> pause_;
    std::optional<PendingAction> next_; ///< To be performed after the pause.
    Subscribers subscribers_;
};

/// The cards of all agents, in the order in which they are shown. All windows share them.
class ProviderCards {
public:
    struct Collaborators {
        HookInstallers& installers;
        SettingsStore& store;
        Files& files;
        Timers& timers;
    };
    explicit ProviderCards(Collaborators with);

    const std::vector<std::unique_ptr<ProviderCard>>& all() const { return cards_; }
    void refresh();
    void clearMessages();

private:
    std::vector<std::unique_ptr<ProviderCard>> cards_;
};

}
