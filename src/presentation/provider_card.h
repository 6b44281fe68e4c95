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

/// The status beside an agent's name. `kind` decides its colour.
struct StatusPill {
    enum class Kind : std::uint8_t { installed, notInstalled, setupNeeded, neutral };
    Kind kind;
    Text text;
};

/// What can be done to an agent's file. Each is confirmed first.
enum class PendingAction : std::uint8_t { install, update, uninstall, restore };

/// The question that confirms an action.
struct Confirmation {
    Phrase title;
    Phrase message;
    Text confirm;
    /// True if the action removes something. Cancel is then the default button.
    bool isDestructive = false;
    /// True if the action also discards changes that others made to the file.
    bool losesChanges = false;
    /// Title of `changes`; absent if they can't be determined.
    std::optional<Text> changesTitle = std::nullopt;
    std::vector<HookChange> changes = {};
};

/// The entries as readable lines. If some are added and others removed, each line begins with "+ " or "- ".
std::string changesText(const std::vector<HookChange>& changes);

/// One agent in the settings and in the onboarding: the state of its file, what can be done to it, and the
/// result of the last action.
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
    /// `file()` for display, with "~" for the home folder.
    std::string shownFile() const;

    /// Reads the file again. Agents and users change it at any time.
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

    /// Also true for a file with an error: installing reports what is wrong.
    bool canInstall() const;
    bool canUninstall() const { return isInstalled() && !look_.isUsersChain; }
    bool canRestore() const { return look_.offersRestore; }
    /// Also true for a file that can't be read or parsed and had our entries when it could.
    bool isConnected() const;
    /// A hint about this agent; absent for most.
    std::optional<Text> agentNote() const;
    /// A hint about the state of its file.
    std::optional<Note> notice() const;
    const std::optional<Text>& infoMessage() const { return infoMessage_; }
    std::optional<Phrase> errorMessage() const;

    Confirmation confirmation(PendingAction action) const;
    /// Performs a confirmed action and stores its result in the settings. During a pause it is kept,
    /// replacing one kept before, and performed when the pause ends.
    void perform(PendingAction action);

    /// The file to reveal in the file manager. If it doesn't exist, absent, and `notice()` says so.
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
    HookLook lookAfterAction_; ///< The state that the messages describe.
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

    /// Whether there is an agent to disconnect.
    bool anyConnected() const;
    Confirmation disconnectConfirmation() const;
    /// Uninstalls from the file of every connected agent. One that fails doesn't stop the others.
    void disconnectAll();
    /// What became of it: an error for each file that it failed on, or that all went well.
    std::vector<ProviderCard::Note> disconnectNotes() const;

private:
    std::vector<ProviderCard*> connected() const;

    std::vector<std::unique_ptr<ProviderCard>> cards_;
    std::vector<ProviderCard*> disconnected_; ///< By the last `disconnectAll`.
};

}
