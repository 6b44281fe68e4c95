// SPDX-License-Identifier: MIT
#include "presentation/provider_card.h"

#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace chimewell::test {
namespace {

class ProviderCardTest : public ::testing::Test {
protected:
    ProviderCard& card(std::string_view provider)
    {
        for (const auto& card : services.cards.all())
            if (card->providerId() == provider) {
                card->refresh();
                return *card;
            }
        throw std::out_of_range("no such card");
    }
    void perform(ProviderCard& card, PendingAction action)
    {
        card.perform(action);
        system.time.advance(ProviderCard::pauseTime);
    }
    std::string& file(std::string_view provider)
    {
        const auto& installers = services.installers.all();
        const auto installer = std::ranges::find(installers, provider, &HookInstaller::providerId);
        return system.files.contents[(*installer)->settingsFileURL()];
    }
    const ProviderInstallState& record(std::string_view provider)
    {
        const auto& all = services.store.settings().providers;
        return *std::ranges::find(all, provider, &ProviderInstallState::providerId);
    }
    static std::string notice(const ProviderCard& card)
    {
        return card.notice() ? english(card.notice()->text) : "";
    }

    FakeSystem system;
    Services services{system.ports()};
};

TEST_F(ProviderCardTest, GoesFromInstallToRestore)
{
    file("claude") = "{\n  \"mine\": 1\n}\n";
    ProviderCard& claude = card("claude");
    EXPECT_EQ(english(claude.pill().text), "Not installed");
    EXPECT_TRUE(claude.canInstall() && !claude.canUninstall() && !claude.canRestore());

    const Confirmation question = claude.confirmation(PendingAction::install);
    EXPECT_EQ(english(question.title), "Install Claude Code hooks?");
    EXPECT_EQ(english(question.message),
              "Chimewell will add its hooks to /home/me/.claude/settings.json. A "
              "timestamped backup of the file is written first, and only Chimewell's own "
              "entries are added.");
    EXPECT_EQ(question.changes.size(), 5U);

    perform(claude, PendingAction::install);
    EXPECT_EQ(english(*claude.infoMessage()), "Installed. Restart your agent session to pick up the hooks.");
    EXPECT_TRUE(!claude.canInstall() && claude.canUninstall() && claude.canRestore() &&
                !claude.isUpdateDue());
    EXPECT_EQ(english(claude.pill().text), "Installed");
    EXPECT_TRUE(record("claude").installed);
    EXPECT_EQ(record("claude").hookVersion, 3);

    EXPECT_TRUE(claude.confirmation(PendingAction::uninstall).isDestructive);
    EXPECT_FALSE(claude.isPausing());
    perform(claude, PendingAction::uninstall);
    EXPECT_EQ(english(*claude.infoMessage()), "Uninstalled. Your other hooks were left untouched.");
    EXPECT_EQ(record("claude"), (ProviderInstallState{.providerId = "claude"}));

    perform(claude, PendingAction::restore);
    EXPECT_EQ(english(*claude.infoMessage()), "Restored the original settings from backup.");
    EXPECT_EQ(file("claude"), "{\n  \"mine\": 1\n}\n");
}

TEST_F(ProviderCardTest, DisconnectsAllAgentsAndSaysWhatFailed)
{
    ProviderCards& cards = services.cards;
    const auto notes = [&] {
        std::string all;
        for (const ProviderCard::Note& note : cards.disconnectNotes())
            all += english(note.text) + "\n";
        return all;
    };
    file("cursor") = "{"; // never connected
    cards.refresh();
    EXPECT_FALSE(cards.anyConnected());
    file("cursor") = "{}";
    for (const char* provider : {"claude", "cursor"})
        perform(card(provider), PendingAction::install);
    const Confirmation question = cards.disconnectConfirmation();
    EXPECT_TRUE(
        english(question.message).ends_with("first: \n~/.claude/settings.json\n~/.cursor/hooks.json"));
    EXPECT_EQ(question.changes.size(), 7U); // five of Claude Code

    file("cursor").insert(0, "{");
    cards.refresh();
    cards.disconnectAll();
    EXPECT_FALSE(file("claude").contains("chimewell") || record("claude").installed);
    EXPECT_TRUE(notes().starts_with("Cursor — The existing settings file at /home/me/.cursor/hooks.json"));
    EXPECT_TRUE(file("cursor").contains("chimewell") && cards.anyConnected());
    file("cursor").erase(0, 1);
    cards.refresh();
    cards.disconnectAll(); // waits for the end of the pause
    EXPECT_EQ(notes(), "");
    system.time.advance(ProviderCard::pauseTime);
    EXPECT_EQ(notes(), "Uninstalled. Your other hooks were left untouched.\n");
    EXPECT_FALSE(cards.anyConnected());
}

TEST_F(ProviderCardTest, TheOriginalsBackupIsNotReplacedWithinItsSecond)
{
    file("claude") = "{}\n";
    ProviderCard& claude = card("claude");
    claude.perform(PendingAction::install);
    EXPECT_TRUE(claude.isPausing());
    claude.perform(PendingAction::update);
    claude.perform(PendingAction::uninstall);
    EXPECT_TRUE(claude.isInstalled());
    int changes = 0;
    const Subscription subscription = claude.onChange([&] { ++changes; });
    system.time.advance(ProviderCard::pauseTime);
    EXPECT_FALSE(claude.isInstalled()); // the latest action
    EXPECT_EQ(changes, 1);
    system.time.advance(ProviderCard::pauseTime);
    perform(claude, PendingAction::restore);
    EXPECT_EQ(file("claude"), "{}\n");
}

TEST_F(ProviderCardTest, OffersAnUpdateAndSaysWhenHooksAreGone)
{
    ProviderCard& claude = card("claude");
    perform(claude, PendingAction::install);
    services.store.updateProvider("claude", [](ProviderInstallState& state) { state.hookVersion = 2; });
    claude.refresh();
    EXPECT_EQ(english(claude.pill().text), "Update available");
    EXPECT_EQ(claude.pill().kind, StatusPill::Kind::setupNeeded);
    EXPECT_NE(notice(claude).find("Click Update Hooks"), std::string::npos);
    perform(claude, PendingAction::update);
    EXPECT_EQ(english(claude.pill().text), "Installed");
    EXPECT_EQ(notice(claude), "");

    services.installers.all().front()->helperPathOverride = "/new/chimewell-hook";
    claude.refresh();
    EXPECT_EQ(claude.infoMessage(), std::nullopt); // "Installed …" is outdated
    EXPECT_NE(notice(claude).find("at another place"), std::string::npos);
    perform(claude, PendingAction::update);
    EXPECT_EQ(notice(claude), "");

    file("claude") += "\n"; // the agent wrote other settings
    claude.refresh();
    EXPECT_NE(claude.infoMessage(), std::nullopt);
    file("claude") = "{}"; // and what it remembered
    claude.refresh();
    EXPECT_EQ(english(claude.pill().text), "Not installed");
    EXPECT_EQ(notice(claude), "Hooks are missing from this file. Install them again.");
}

TEST_F(ProviderCardTest, ShowsTheInstallersWordsAndKeepsTheStatus)
{
    file("codex") = "notify = [\"other\"]\n";
    ProviderCard& codex = card("codex");
    EXPECT_TRUE(codex.isBeta() && card("cursor").isBeta() && !card("claude").isBeta());
    perform(codex, PendingAction::install);
    EXPECT_EQ(english(*codex.errorMessage()).find("Codex supports only a single `notify` program"), 0U);
    EXPECT_EQ(codex.infoMessage(), std::nullopt);
    EXPECT_EQ(english(codex.pill().text), "Not installed");
    EXPECT_FALSE(record("codex").installed);
    file("codex") = "notify = [\"chain\", \"chimewell-hook\"]\n";
    codex.refresh();
    EXPECT_FALSE(codex.canInstall() || codex.isUpdateDue() || codex.canUninstall());
    EXPECT_NE(notice(codex).find("chain of your own"), std::string::npos);

    file("cursor") = "{";
    ProviderCard& cursor = card("cursor");
    EXPECT_EQ(english(cursor.pill().text), "Error");
    EXPECT_TRUE(cursor.canInstall());
    EXPECT_NE(english(*cursor.errorMessage()).find("is not valid JSON"), std::string::npos);
    file("cursor") = "{}";
    cursor.refresh();
    EXPECT_EQ(cursor.errorMessage(), std::nullopt);
}

TEST(ChangesText, MarksLinesOnlyIfSomeAreAddedAndOthersRemoved)
{
    using Kind = HookChange::Kind;
    EXPECT_EQ(changesText({{Kind::added, "a: [\n]"}, {Kind::added, "b"}}), "a: [\n]\nb");
    EXPECT_EQ(changesText({{Kind::removed, "a: [\n]"}, {Kind::added, "b"}}), "- a: [\n- ]\n+ b");
    EXPECT_EQ(changesText({}), "");
}

TEST_F(ProviderCardTest, RevealsTheFileOrSaysThatThereIsNone)
{
    ProviderCard& cursor = card("cursor");
    EXPECT_EQ(cursor.fileToReveal(), std::nullopt);
    EXPECT_EQ(notice(cursor),
              "Nothing to reveal yet — /home/me/.cursor/hooks.json doesn’t exist. It’s created when "
              "you Install (Cursor may not be set up on this Mac).");
    file("cursor") = "{}";
    cursor.refresh();
    EXPECT_EQ(notice(cursor), "");
    EXPECT_EQ(cursor.fileToReveal(), "/home/me/.cursor/hooks.json");
}

}
}
