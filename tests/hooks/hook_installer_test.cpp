// SPDX-License-Identifier: MIT
#include "hooks/hook_installers.h"
#include "support/fake_time.h"
#include "support/fixed_places.h"
#include "support/memory_files.h"
#include "json/json_text.h"

#include <gtest/gtest.h>

#include <optional>
#include <regex>
#include <string>
#include <utility>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;
using Status = HookInstallStatus::Kind;

/// `json` in our layout, with Claude Code's group for each `$EVENT` and Cursor's entry for each `#EVENT`.
std::string laidOut(std::string json)
{
    for (const auto& [mark, text] :
         {std::pair{R"(\$rest)", R"("Notification": [$$waiting_input], "SubagentStop": [$$subagent_finished],
                                    "UserPromptSubmit": [$$user_acted], "PostToolUse": [$$user_acted])"},
          std::pair{R"(\$(\w+))", R"({"matcher": "", "hooks": [{"type": "command", "command":
                                     "\"/opt/chimewell-hook\" claude $1"}]})"},
          std::pair{R"(#(\w+))", R"({"command": "\"/opt/chimewell-hook\" cursor $1"})"}})
        json = std::regex_replace(json, std::regex(mark), text);
    const auto parsed = parseJSON(json);
    return parsed ? writeJSON(*parsed) + "\n" : "not JSON: " + json;
}

const std::string claudeFile = laidOut(R"({"hooks": {"Stop": [$finished], $rest}})");
const std::string notifyLine = "notify = [\"/opt/chimewell-hook\", \"codex-notify\"]\n";
const std::string claudeBackup = "/home/me/.claude/settings.json.chimewell-backup-";
constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

class HookInstallerTest : public ::testing::Test {
protected:
    static std::string outcome(const HookInstaller::Result<ProviderInstallState>& result)
    {
        return result ? "done" : english(result.error().description());
    }
    std::string& file(const HookInstaller& installer) { return files.contents[installer.settingsFileURL()]; }
    static HookLook look(const HookInstaller& installer, std::int64_t recorded = 3)
    {
        return installer.look({.providerId = "", .hookVersion = recorded});
    }

    /// Installing twice and uninstalling; without an expectation the latter gives back what was there before.
    void check(HookInstaller& installer, const std::string& before, const std::string& installed,
               const std::optional<std::string>& uninstalled = std::nullopt)
    {
        SCOPED_TRACE(before);
        const auto expected = [&](const std::string& text) {
            return &installer == &codex ? text : laidOut(text);
        };
        file(installer) = before;
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(outcome(installer.install()), "done");
            EXPECT_EQ(file(installer), expected(installed));
            EXPECT_EQ(installer.status().kind, Status::installed);
        }
        EXPECT_EQ(outcome(installer.uninstall()), "done");
        EXPECT_EQ(file(installer), expected(uninstalled.value_or(before)));
        EXPECT_EQ(installer.status().kind, Status::notInstalled);
        const int writes = files.writes;
        EXPECT_EQ(outcome(installer.uninstall()), "done");
        EXPECT_EQ(files.writes, writes);
    }

    MemoryFiles files;
    FakeTime time;
    FixedHome home;
    OneResource resources;
    HookInstallers installers{{.files = files, .clock = time, .folders = home, .resources = resources}};
    HookInstaller& claude = *installers.all()[0];
    HookInstaller& codex = *installers.all()[1];
    HookInstaller& cursor = *installers.all()[2];
};

TEST_F(HookInstallerTest, AddsAndRemovesItsEntriesInJson)
{
    check(claude, R"({"n": 1.50, "n": 1e5})",
          R"({"n": 1.50, "n": 1e5, "hooks": {"Stop": [$finished], $rest}})");
    // The user's entries stay in their places and ours come last. What only we filled goes.
    check(claude, R"({"hooks": {"Mine": [1], "Stop": [2], "Too": []}, "z": true})",
          R"({"hooks": {"Mine": [1], "Stop": [2, $finished], "Too": [], $rest}, "z": true})");
    check(claude, R"({"hooks": {"Stop": []}})", R"({"hooks": {"Stop": [$finished], $rest}})", "{}");
    // Older ones of ours are replaced, also in a group with another command, but not at events that are not
    // ours.
    const std::string old = R"({"hooks": [{"command": "/old/chimewell-hook claude x"}, {"command": "y"}]})";
    check(claude, R"({"hooks": {"Old": [)" + old + R"(, 7], "Stop": [)" + old + ", 8]}}",
          R"({"hooks": {"Old": [)" + old + R"(, 7], "Stop": [8, $finished], $rest}})",
          R"({"hooks": {"Old": [7], "Stop": [8]}})");
    // Of repeated keys agents read the last; what is ours leaves all of them.
    check(claude, R"({"hooks": 5, "hooks": {"Stop": [1, )" + old + R"(], "Stop": [{"hooks": 1}]}, "a": 1})",
          R"({"hooks": 5, "hooks": {"Stop": [1, )" + old +
              R"(], "Stop": [{"hooks": 1}, $finished], $rest}, "a": 1})",
          R"({"hooks": 5, "hooks": {"Stop": [1], "Stop": [{"hooks": 1}]}, "a": 1})");
    const std::string lookalikes =
        R"("chimewell-hook", {"command": "chimewell-hook"}, {"hooks": "chimewell-hook"},
           {"hooks": [{"command": ["chimewell-hook"]}, {"x": "chimewell-hook"}]})";
    check(claude, R"({"hooks": {"Stop": [)" + lookalikes + "]}}",
          R"({"hooks": {"Stop": [)" + lookalikes + ", $finished], $rest}}");

    check(
        cursor,
        R"({"hooks": {"stop": [{"command": "x"}, {"command": "chimewell-hook", "n": 1}]}, "version": 2})",
        R"({"hooks": {"stop": [{"command": "x"}, #finished], "subagentStop": [#subagent_finished]}, "version": 2})",
        R"({"hooks": {"stop": [{"command": "x"}]}, "version": 2})");
    check(cursor, "{}",
          R"({"version": 1, "hooks": {"stop": [#finished], "subagentStop": [#subagent_finished]}})",
          R"({"version": 1, "hooks": {}})");
}

TEST_F(HookInstallerTest, AddsAndRemovesItsLineInToml)
{
    for (const std::string text :
         {"", "a = 1\r\nb = 2\r\n", "a = [\n[1],\nnotify = 2\n]\n",
          "[x]\nnotify.y = 1\n[y]\nnotify = [\"other\"]\n",
          "notify_x = 1\n# notify = 2\n[notify_x]\n[x.notify]\n",
          "a = \"\\\"\"\nb = '\\'\nc = \"\"\"\nnotify = 1\n[x]\n\\\"\"\" \"\"\"\"\nd = {e = '}'}\n"})
        check(codex, text, notifyLine + text);
    check(codex, "a = 1", notifyLine + "a = 1\n", "a = 1\n");
    const std::string mark = byteOrderMark;
    check(codex, mark + "a = 1\n", mark + notifyLine + "a = 1\n");
    check(codex, "a = 1\n \tnotify\t=[\"/old/chimewell-hook\"]\nb = 2\n", "a = 1\n" + notifyLine + "b = 2\n",
          "a = 1\nb = 2\n");
    for (const char* ours : {"notify=[\n  \"/old/chimewell-hook\", # ]\n  \"codex-notify\",\n]",
                             "\"notify\" = [\"chimewell-hook\"]\r\n",
                             "\"n\\u006Ftif\\U00000079\" = [ # \"\n'/old/chimewell-hook', 'other']\n",
                             "notify = [\"\"\"\n/old/\\u0063hime\\\n  well-hook\"\"\"]\n",
                             "notify = [\"\"\"\r\nchimewell-hook\"\"\"]\n"})
        check(codex, ours, notifyLine, "");
}

TEST_F(HookInstallerTest, RefusesWhatItCannotChangeSafely)
{
    const std::string unparseable =
        "The existing settings file at /home/me/.claude/settings.json is not valid JSON. "
        "Refusing to modify it to avoid data loss. Please fix or remove it, then try again.";
    const std::string chain = "Codex calls Chimewell through a `notify` chain of your own";
    const std::string lineBreak = "The chimewell-hook helper lies in a folder with a line break";
    const auto refuses = [&](HookInstaller& installer, const std::string& before, const std::string& install,
                             const std::string& uninstall = "done",
                             const std::optional<std::string>& helper = "/opt/chimewell-hook") {
        SCOPED_TRACE(before.substr(0, 100));
        files.contents = {{installer.settingsFileURL(), before}};
        resources.helper = helper;
        EXPECT_TRUE(outcome(installer.install()).starts_with(install));
        EXPECT_TRUE(outcome(installer.uninstall()).starts_with(uninstall));
        EXPECT_EQ(file(installer), before);
        EXPECT_EQ(files.contents.size(), 1U); // no backup
        EXPECT_EQ(look(installer).isUsersChain, install == chain);
        EXPECT_EQ(look(installer).status.kind, install == chain      ? Status::installed
                                               : uninstall == "done" ? Status::notInstalled
                                                                     : Status::error);
    };
    for (const char* text : {"", "{", "[]", "{} x", "{\"\xFF\": 1}", "\xEF\xBB\xBF{}"})
        refuses(claude, text, unparseable, unparseable);
    refuses(claude, R"({"hooks": {"Stop": {}}})", unparseable);
    refuses(claude, R"({"a": )" + std::string(100'000, '[') + std::string(100'000, ']') + "}",
            "Could not serialize settings."); // huge in our layout
    refuses(claude, "{}", "Could not serialize settings.", "done", "/opt/\xE9/chimewell-hook");
    refuses(claude, "{}", "The bundled chimewell-hook helper could not be found", "done", std::nullopt);
    refuses(claude, "{}", lineBreak, "done", "/a\nb/chimewell-hook");
    for (const char* helper : {"/private/var/folders/x/AppTranslocation/1/d/Chimewell.app/chimewell-hook",
                               "/Volumes/Chimewell 1.0/Chimewell.app/chimewell-hook"})
        refuses(claude, "{}", "Chimewell runs from a disk image", "done", helper);
    resources.helper = "/Volumes/Big/Applications/Chimewell.app/chimewell-hook";
    EXPECT_EQ(outcome(claude.install()), "done");
    refuses(codex, "", "Could not encode config.toml.", "done", "/opt/\xE9/chimewell-hook");
    const std::string notUtf8 = "Could not read /home/me/.codex/config.toml: The file is not valid UTF-8.";
    refuses(codex, "a = \"\xFF\"\n", notUtf8, notUtf8);
    for (const char* text :
         {"notify = [\"other\"] # chimewell-hook\n", "text = '''\n''' \n'notify'=1\n",
          "a = ''''''\nb = \"\"\nnotify = 1\n", "a = [\"\"\"x\"\"\"\"]\nb = {c = 1}\nnotify = {}\n",
          "notify.program = \"other\"\n", "a = 1\n[notify]\nx = 1\n", "[a]\n[[notify]]\n",
          "[ \"notify\" . x ]\n"})
        refuses(codex, text, "Codex supports only a single `notify` program");
    for (const char* text : {"notify = [\"/home/u/chain.sh\", \"/opt/chimewell-hook\"]\n",
                             "notify = [ # mine\n  '/home/u/chimewell-hook/chain.sh',\n]\n"})
        refuses(codex, text, chain, chain);
}

TEST_F(HookInstallerTest, RestoresTheOldestBackup)
{
    EXPECT_EQ(outcome(claude.restore()), "No Chimewell backup was found to restore from.");
    file(claude) = "{ \"mine\": 1 }";
    files.contents["/home/me/.claude/a settings.json.chimewell-backup-2020"] = "{}";
    EXPECT_EQ(claude.install(), (ProviderInstallState{.providerId = "claude",
                                                      .installed = true,
                                                      .installedAt = time.now(),
                                                      .settingsPath = "/home/me/.claude/settings.json",
                                                      .backupPath = claudeBackup + "2026-03-01T14-00-00Z",
                                                      .hookVersion = 3}));
    time.advance(1s);
    EXPECT_EQ(claude.install()->backupPath, claudeBackup + "2026-03-01T14-00-01Z");
    EXPECT_TRUE(look(claude).offersRestore);
    EXPECT_EQ(claude.restore(), (ProviderInstallState{.providerId = "claude"}));
    EXPECT_EQ(file(claude), "{ \"mine\": 1 }");
    // One with entries of ours in it is no original.
    files.contents[claudeBackup + "2025"] = claudeFile;
    EXPECT_FALSE(look(claude).offersRestore);
    EXPECT_EQ(outcome(claude.restore()), "done");
    EXPECT_EQ(file(claude), claudeFile);
    files.contents[claudeBackup + "2024"] = "{ broken";
    EXPECT_TRUE(look(claude).offersRestore);
}

TEST_F(HookInstallerTest, TellsWhatWouldChange)
{
    EXPECT_TRUE(claude.changesByUninstall()->empty());
    file(claude) = R"({"hooks":{"Stop":[{"hooks":[{"command":"/old/chimewell-hook claude done"}]}]}})";
    const auto install = claude.changesByInstall().value();
    ASSERT_EQ(install.size(), 6U);
    EXPECT_EQ(install[0], (HookChange{HookChange::Kind::removed,
                                      "\"Stop\": [\n  {\n    \"hooks\": [\n      {\n        \"command\": "
                                      "\"/old/chimewell-hook claude done\"\n      }\n    ]\n  }\n]"}));
    EXPECT_EQ(install[1].kind, HookChange::Kind::added);
    ASSERT_TRUE(claude.install());
    EXPECT_TRUE(claude.changesByInstall()->empty());
    EXPECT_EQ(claude.changesByUninstall()->size(), 5U);
    file(codex) = notifyLine;
    const std::string line = notifyLine.substr(0, notifyLine.size() - 1);
    EXPECT_EQ(codex.changesByUninstall(), (std::vector{HookChange{HookChange::Kind::removed, line}}));
}

TEST_F(HookInstallerTest, OffersAnUpdateOnlyWhereItHelps)
{
    const auto expect = [&](std::optional<HookUpdate> update, HookInstaller& installer, int recorded,
                            const std::string& content, const char* replaced = "", const char* by = "") {
        file(installer) = std::regex_replace(content, std::regex(replaced), by);
        EXPECT_EQ(installer.status().kind, Status::installed) << file(installer);
        EXPECT_EQ(look(installer, recorded).update, update) << file(installer);
    };
    constexpr auto none = std::nullopt;
    expect(none, claude, 3, claudeFile);
    expect(HookUpdate::olderVersion, claude, 2, claudeFile);
    expect(none, claude, 3, claudeFile, "Stop", "Mine"); // removed on purpose
    expect(HookUpdate::reminderHooks, claude, 2, claudeFile, "PostToolUse", "Mine");
    expect(HookUpdate::otherHelper, claude, 2, claudeFile, "/opt/(.*finished)", "/old/$1");
    // The same helper in the user's own words, and entries that an install leaves or that no agent reads.
    expect(none, claude, 3, claudeFile, R"(\\"(/opt/[^\\]*)\\"(.*finished))", "$1$2 &");
    expect(none, claude, 3, claudeFile, R"("hooks": \{)",
           R"("hooks": {"Mine": [{"hooks": [{"command": "/old/chimewell-hook"}]}],)");
    expect(none, claude, 3, claudeFile, R"("Stop")",
           R"("Stop": [{"hooks": [{"command": "/old/chimewell-hook"}]}], "Stop")");
    expect(none, codex, 1, notifyLine);
    expect(HookUpdate::otherHelper, codex, 1, notifyLine, "/opt", "/old");
    resources.helper.reset();
    expect(none, codex, 0, notifyLine); // it could not be made
    codex.helperPathOverride = "/new/chimewell-hook";
    expect(HookUpdate::otherHelper, codex, 1, notifyLine);
}

}
}
