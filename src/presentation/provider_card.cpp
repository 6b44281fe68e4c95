// SPDX-License-Identifier: MIT
#include "presentation/provider_card.h"

#include "base/unicode_text.h"
#include "values/provider.h"
#include "values/texts.h"

#include <algorithm>
#include <utility>

namespace chimewell {

namespace {

using Status = HookInstallStatus::Kind;

Text infoAfter(PendingAction action)
{
    switch (action) {
    case PendingAction::install:
    case PendingAction::update:
        return texts::installedInfo;
    case PendingAction::uninstall:
        return texts::uninstalledInfo;
    case PendingAction::restore:
        break;
    }
    return texts::restoredInfo;
}

}

ProviderCard::ProviderCard(Collaborators with) : with_(with)
{
    refresh();
}

std::string ProviderCard::shownFile() const
{
    return "~/" + std::string(with_.installer.settingsFileInHome());
}

void ProviderCard::refresh()
{
    look_ = with_.installer.look(record());
    clearOutdatedMessages();
    subscribers_.notify();
}

Subscription ProviderCard::onChange(std::function<void()> callback)
{
    return subscribers_.add(std::move(callback));
}

StatusPill ProviderCard::pill() const
{
    using Kind = StatusPill::Kind;
    switch (look_.status.kind) {
    case Status::installed:
        if (isUpdateDue()) return {Kind::setupNeeded, texts::updateAvailable};
        return {Kind::installed, texts::installed};
    case Status::error:
        return {Kind::setupNeeded, texts::error};
    case Status::notInstalled:
        return {Kind::notInstalled, texts::notInstalled};
    case Status::comingSoon:
        break;
    }
    return {Kind::neutral, texts::comingSoon};
}

bool ProviderCard::canInstall() const
{
    return look_.status.kind == Status::notInstalled || look_.status.kind == Status::error;
}

bool ProviderCard::isConnected() const
{
    return canUninstall() || (look_.status.kind == Status::error && record().installed);
}

std::optional<Text> ProviderCard::agentNote() const
{
    if (providerId() == codexProvider) return texts::codexNote;
    if (providerId() == cursorProvider) return texts::cursorNote;
    return std::nullopt;
}

std::optional<ProviderCard::Note> ProviderCard::notice() const
{
    if (nothingToReveal_)
        return Note{"folder",
                    Tone::secondary,
                    {texts::nothingToReveal, {file().string(), std::string(displayName())}}};
    if (look_.isUsersChain) return Note{"info.circle", Tone::secondary, texts::notifyIsChain};
    if (look_.update == HookUpdate::otherHelper)
        return Note{"exclamationmark.triangle", Tone::orange, texts::otherHelperNotice};
    // Claude Code's older hooks lack those for reminders.
    if (look_.update == HookUpdate::reminderHooks ||
        (look_.update == HookUpdate::olderVersion && providerId() == claudeProvider))
        return Note{"arrow.triangle.2.circlepath", Tone::orange, texts::updateNotice};
    if (record().installed && look_.status.kind == Status::notInstalled)
        return Note{"exclamationmark.triangle", Tone::orange, texts::hooksMissing};
    return std::nullopt;
}

std::optional<Phrase> ProviderCard::errorMessage() const
{
    if (failure_) return failure_;
    return look_.status.kind == Status::error ? std::optional(look_.status.message) : std::nullopt;
}

Confirmation ProviderCard::confirmation(PendingAction action) const
{
    const std::string path = file().string();
    const auto with = [](Confirmation question, Text title,
                         HookInstaller::Result<std::vector<HookChange>> changes) {
        if (changes) {
            question.changesTitle = title;
            question.changes = std::move(*changes);
        }
        return question;
    };
    switch (action) {
    case PendingAction::install:
        return with({.title = {texts::installTitle, {std::string(displayName())}},
                     .message = {texts::installMessage, {path}},
                     .confirm = texts::install},
                    texts::entriesToBeAdded, with_.installer.changesByInstall());
    case PendingAction::update:
        return with({.title = texts::updateTitle,
                     .message = {texts::updateMessage, {path}},
                     .confirm = texts::update},
                    texts::entriesToBeChanged, with_.installer.changesByInstall());
    case PendingAction::uninstall:
        return with({.title = texts::uninstallTitle,
                     .message = {texts::uninstallMessage, {path}},
                     .confirm = texts::uninstall,
                     .isDestructive = true},
                    texts::entriesToBeRemoved, with_.installer.changesByUninstall());
    case PendingAction::restore:
        break;
    }
    return {.title = texts::restoreTitle,
            .message = {texts::restoreMessage, {path}},
            .confirm = texts::restore,
            .isDestructive = true,
            .losesChanges = true};
}

void ProviderCard::perform(PendingAction action)
{
    if (isPausing()) {
        next_ = action;
        return;
    }
    clearMessages();
    const auto done = run(action);
    if (done) {
        infoMessage_ = infoAfter(action);
        with_.store.updateProvider(providerId(), [&](ProviderInstallState& state) { state = *done; });
    } else {
        failure_ = done.error().description();
    }
    look_ = lookAfterAction_ = with_.installer.look(record());
    pause_ = with_.timers.once(pauseTime, [this] { endPause(); });
    subscribers_.notify();
}

std::optional<std::filesystem::path> ProviderCard::fileToReveal()
{
    nothingToReveal_ = !with_.files.kind(file());
    subscribers_.notify();
    if (nothingToReveal_) return std::nullopt;
    return file();
}

void ProviderCard::clearMessages()
{
    infoMessage_.reset();
    failure_.reset();
    nothingToReveal_ = false;
}

void ProviderCard::endPause()
{
    pause_.reset();
    if (const auto action = std::exchange(next_, std::nullopt))
        perform(*action);
    else
        subscribers_.notify();
}

void ProviderCard::clearOutdatedMessages()
{
    const bool isOtherState =
        look_.status != lookAfterAction_.status || look_.update != lookAfterAction_.update;
    if (isOtherState) infoMessage_.reset();
    // Other changes to the file leave a success true. A failure may be over.
    if (isOtherState || look_.fingerprint != lookAfterAction_.fingerprint) failure_.reset();
    nothingToReveal_ = nothingToReveal_ && !with_.files.kind(file());
}

HookInstaller::Result<ProviderInstallState> ProviderCard::run(PendingAction action)
{
    switch (action) {
    case PendingAction::install:
    case PendingAction::update:
        return with_.installer.install();
    case PendingAction::uninstall:
        return with_.installer.uninstall();
    case PendingAction::restore:
        break;
    }
    return with_.installer.restore();
}

ProviderInstallState ProviderCard::record() const
{
    const auto& records = with_.store.settings().providers;
    const auto found = std::ranges::find(records, providerId(), &ProviderInstallState::providerId);
    return found == records.end() ? ProviderInstallState{.providerId = std::string(providerId())} : *found;
}

ProviderCards::ProviderCards(Collaborators with)
{
    for (HookInstaller* installer : with.installers.all())
        cards_.push_back(std::make_unique<ProviderCard>(ProviderCard::Collaborators{
            .installer = *installer, .store = with.store, .files = with.files, .timers = with.timers}));
}

void ProviderCards::refresh()
{
    for (const auto& card : cards_)
        card->refresh();
}

void ProviderCards::clearMessages()
{
    disconnected_.clear();
    for (const auto& card : cards_)
        card->clearMessages();
}

std::vector<ProviderCard*> ProviderCards::connected() const
{
    std::vector<ProviderCard*> found;
    for (const auto& card : cards_)
        if (card->isConnected()) found.push_back(card.get());
    return found;
}

bool ProviderCards::anyConnected() const
{
    return !connected().empty();
}

Confirmation ProviderCards::disconnectConfirmation() const
{
    Confirmation question{.title = texts::disconnectAllTitle,
                          .message = {},
                          .confirm = texts::disconnectAllButton,
                          .isDestructive = true};
    std::string files;
    for (const ProviderCard* card : connected()) {
        files += "\n" + card->shownFile();
        const Confirmation one = card->confirmation(PendingAction::uninstall);
        if (one.changesTitle) question.changesTitle = one.changesTitle;
        question.changes.insert(question.changes.end(), one.changes.begin(), one.changes.end());
    }
    question.message = {texts::disconnectAllMessage, {files}};
    return question;
}

void ProviderCards::disconnectAll()
{
    disconnected_ = connected();
    for (ProviderCard* card : disconnected_)
        card->perform(PendingAction::uninstall);
}

std::vector<ProviderCard::Note> ProviderCards::disconnectNotes() const
{
    std::vector<ProviderCard::Note> notes;
    for (const ProviderCard* card : disconnected_)
        if (const auto error = card->errorMessage())
            notes.push_back({"exclamationmark.triangle",
                             Tone::red,
                             {texts::titleAndDetail, {std::string(card->displayName()), *error}}});
    const auto isDone = [](const ProviderCard* card) {
        return card->infoMessage() == std::optional(texts::uninstalledInfo);
    };
    if (notes.empty() && !disconnected_.empty() && std::ranges::all_of(disconnected_, isDone))
        notes.push_back({"checkmark.circle", Tone::green, texts::uninstalledInfo});
    return notes;
}

std::string changesText(const std::vector<HookChange>& changes)
{
    const auto hasKind = [&](HookChange::Kind kind) {
        return std::ranges::find(changes, kind, &HookChange::kind) != changes.end();
    };
    const bool isMixed = hasKind(HookChange::Kind::added) && hasKind(HookChange::Kind::removed);
    std::string text;
    for (const HookChange& change : changes) {
        if (!text.empty()) text += '\n';
        const std::string mark = !isMixed ? "" : change.kind == HookChange::Kind::added ? "+ " : "- ";
        text += mark;
        for (const char character : readableText(change.entry)) {
            text += character;
            if (character == '\n') text += mark;
        }
    }
    return text;
}

}
