// SPDX-License-Identifier: MIT
#include "hooks/hook_installers.h"
#include "support/fake_time.h"
#include "support/fixed_home.h"
#include "support/memory_files.h"
#include "support/one_resource.h"
#include "json/json_parser.h"
#include "json/json_writer.h"

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

    MemoryFiles files;
    FakeTime time;
    FixedHome home;
    OneResource resources;
    HookInstallers installers{{.files = files, .clock = time, .folders = home, .resources = resources}};
    HookInstaller& claude = *installers.all()[0];
    HookInstaller& codex = *installers.all()[1];
    HookInstaller& cursor = *installers.all()[2];
};

TEST_F(HookInstallerTest, MakesTheFileAndItsFolder)
{
    const auto state = claude.install();
    EXPECT_EQ(state, (ProviderInstallState{.providerId = "claude",
                                           .installed = true,
                                           .installedAt = time.now(),
                                           .settingsPath = "/home/me/.claude/settings.json",
                                           .hookVersion = 3}));
    EXPECT_EQ(file(claude), claudeFile);
    EXPECT_EQ(claude.status().kind, Status::installed);
    EXPECT_FALSE(look(claude).offersRestore);
    EXPECT_EQ(cursor.install()->hookVersion, 1);
    EXPECT_EQ(file(cursor),
              "{\n  \"version\": 1,\n  \"hooks\": {\n    \"stop\": [\n      {\n"
              "        \"command\": \"\\\"/opt/chimewell-hook\\\" cursor finished\"\n      }\n"
              "    ],\n    \"subagentStop\": [\n      {\n        \"command\": "
              "\"\\\"/opt/chimewell-hook\\\" cursor subagent_finished\"\n      }\n    ]\n  }\n}\n");
    EXPECT_EQ(codex.install()->hookVersion, 1);
    EXPECT_EQ(file(codex), notifyLine);
}

TEST_F(HookInstallerTest, AddsAndRemovesItsOwnEntriesAlone)
{
    const struct {
        HookInstaller& installer;
        std::string before, installed, uninstalled;
    } cases[] = {
        {claude, R"({"n": 1.50, "n": 1e5})",
         R"({"n": 1.50, "n": 1e5, "hooks": {"Stop": [$finished], $rest}})", R"({"n": 1.50, "n": 1e5})"},
        // The user's entries stay in their places, ours come last, and what only we filled goes.
        {claude, R"({"hooks": {"Stop": [{"hooks": [{"command": "other"}]}], "PreToolUse": []}, "z": true})",
         R"({"hooks": {"Stop": [{"hooks": [{"command": "other"}]}, $finished], "PreToolUse": [], $rest}, "z": true})",
         R"({"hooks": {"Stop": [{"hooks": [{"command": "other"}]}], "PreToolUse": []}, "z": true})"},
        {claude, R"({"hooks": {}})", R"({"hooks": {"Stop": [$finished], $rest}})", "{}"},
        {claude, R"({"hooks": {"Stop": []}})", R"({"hooks": {"Stop": [$finished], $rest}})", "{}"},
        // Older ones of ours are replaced, also in a group with another command, but not at events of others.
        {claude,
         R"({"hooks": {"Old": [{"hooks": [{"command": "chimewell-hook"}]}, 7],
                       "Stop": [{"hooks": [{"command": "/old/chimewell-hook claude x"}, {"command": "y"}]}, 8]}})",
         R"({"hooks": {"Old": [{"hooks": [{"command": "chimewell-hook"}]}, 7], "Stop": [8, $finished], $rest}})",
         R"({"hooks": {"Old": [7], "Stop": [8]}})"},
        // Of repeated keys agents read the last; what is ours leaves all of them.
        {claude,
         R"({"hooks": {"Stop": 5}, "hooks": {"Stop": [1, {"hooks": 1, "hooks": [{"command": "chimewell-hook"}]}],
                                             "Stop": [2]}, "a": 1})",
         R"({"hooks": {"Stop": 5}, "hooks": {"Stop": [1, {"hooks": 1, "hooks": [{"command": "chimewell-hook"}]}],
                                             "Stop": [2, $finished], $rest}, "a": 1})",
         R"({"hooks": {"Stop": 5}, "hooks": {"Stop": [1], "Stop": [2]}, "a": 1})"},
        // What only looks like ours stays.
        {claude,
         R"({"hooks": {"Stop": ["chimewell-hook", {"command": "chimewell-hook"}, {"hooks": "chimewell-hook"},
                                {"hooks": [{"command": ["chimewell-hook"]}, {"x": "chimewell-hook"}]}]}})",
         R"({"hooks": {"Stop": ["chimewell-hook", {"command": "chimewell-hook"}, {"hooks": "chimewell-hook"},
                                {"hooks": [{"command": ["chimewell-hook"]}, {"x": "chimewell-hook"}]}, $finished],
                       $rest}})",
         R"({"hooks": {"Stop": ["chimewell-hook", {"command": "chimewell-hook"}, {"hooks": "chimewell-hook"},
                                {"hooks": [{"command": ["chimewell-hook"]}, {"x": "chimewell-hook"}]}]}})"},
        {cursor, "{}",
         R"({"version": 1, "hooks": {"stop": [#finished], "subagentStop": [#subagent_finished]}})",
         R"({"version": 1, "hooks": {}})"},
        {cursor,
         R"({"hooks": {"stop": [{"command": "x"}, {"command": "chimewell-hook", "n": 1}]}, "version": 2})",
         R"({"hooks": {"stop": [{"command": "x"}, #finished], "subagentStop": [#subagent_finished]}, "version": 2})",
         R"({"hooks": {"stop": [{"command": "x"}]}, "version": 2})"},

        {codex, "", notifyLine, ""},
        {codex, "# a\nb = 1", notifyLine + "# a\nb = 1\n", "# a\nb = 1\n"},
        {codex, "a = 1\r\nb = 2\r\n", notifyLine + "a = 1\r\nb = 2\r\n", "a = 1\r\nb = 2\r\n"},
        {codex, std::string(byteOrderMark) + "a = 1\n", byteOrderMark + notifyLine + "a = 1\n",
         std::string(byteOrderMark) + "a = 1\n"},
        {codex, "[x]\nnotify = [\"other\"]\n", notifyLine + "[x]\nnotify = [\"other\"]\n",
         "[x]\nnotify = [\"other\"]\n"},
        {codex, "notify_x = 1\n# notify = 2\n", notifyLine + "notify_x = 1\n# notify = 2\n",
         "notify_x = 1\n# notify = 2\n"},
        {codex, "a = 1\n \tnotify\t=[\"/old/chimewell-hook\"]\nb = 2\n", "a = 1\n" + notifyLine + "b = 2\n",
         "a = 1\nb = 2\n"},
        {codex, "notify=[\n  \"/old/chimewell-hook\", # ]\n  \"codex-notify\",\n]\nb = 2",
         notifyLine + "b = 2\n", "b = 2\n"},
        {codex, "\"notify\" = [\"chimewell-hook\"]\n", notifyLine, ""},
        {codex, "\"n\\u006Ftif\\U00000079\" = [ # \"\n'/old/chimewell-hook', 'other']\n", notifyLine, ""},
        {codex, "notify = [\"\"\"\n/old/\\u0063hime\\\n  well-hook\"\"\"]\n", notifyLine, ""},
        {codex, "a = \"\\\"\"\nb = '\\'\nc = \"\"\"\nnotify = 1\n[x]\n\\\"\"\" \"\"\"\"\nd = {e = '}'}\n",
         notifyLine +
             "a = \"\\\"\"\nb = '\\'\nc = \"\"\"\nnotify = 1\n[x]\n\\\"\"\" \"\"\"\"\nd = {e = '}'}\n",
         "a = \"\\\"\"\nb = '\\'\nc = \"\"\"\nnotify = 1\n[x]\n\\\"\"\" \"\"\"\"\nd = {e = '}'}\n"},
        {codex, "a = [\n[1],\nnotify = 2\n]\nnotify = \"chimewell-hook\"\n",
         "a = [\n[1],\nnotify = 2\n]\n" + notifyLine, "a = [\n[1],\nnotify = 2\n]\n"},
    };
    for (const auto& [installer, before, installed, uninstalled] : cases) {
        SCOPED_TRACE(before);
        const bool isJson = &installer != &codex;
        file(installer) = before;
        EXPECT_EQ(outcome(installer.install()), "done");
        EXPECT_EQ(file(installer), isJson ? laidOut(installed) : installed);
        EXPECT_EQ(installer.status().kind, Status::installed);
        const std::string once = file(installer);
        EXPECT_EQ(outcome(installer.install()), "done");
        EXPECT_EQ(file(installer), once);
        EXPECT_EQ(outcome(installer.uninstall()), "done");
        EXPECT_EQ(file(installer), isJson ? laidOut(uninstalled) : uninstalled);
        EXPECT_EQ(installer.status().kind, Status::notInstalled);
        const int writes = files.writes;
        EXPECT_EQ(outcome(installer.uninstall()), "done");
        EXPECT_EQ(files.writes, writes);
    }
}

TEST_F(HookInstallerTest, RefusesWhatItCannotChangeSafely)
{
    const std::string unparseable =
        "The existing settings file at /home/me/.claude/settings.json is not valid JSON. "
        "Refusing to modify it to avoid data loss. Please fix or remove it, then try again.";
    const std::string taken = "Codex supports only a single `notify` program";
    const std::string chain = "Codex calls Chimewell through a `notify` chain of your own";
    const std::string helperMissing = "The bundled chimewell-hook helper could not be found";
    const std::string lineBreak = "The chimewell-hook helper lies in a folder with a line break";
    const std::string nested = R"({"a": )" + std::string(100'000, '[') + std::string(100'000, ']') + "}";
    const struct {
        HookInstaller& installer;
        std::string before, install, uninstall = "done";
        std::optional<std::string> helper = "/opt/chimewell-hook";
    } cases[] = {
        {claude, "", unparseable, unparseable},
        {claude, "{", unparseable, unparseable},
        {claude, "[]", unparseable, unparseable},
        {claude, "{} x", unparseable, unparseable},
        {claude, "{\"\xFF\": 1}", unparseable, unparseable},
        {claude, std::string(byteOrderMark) + "{}", unparseable, unparseable},
        {claude, R"({"hooks": null})", unparseable},
        {claude, R"({"hooks": {"Stop": {}}})", unparseable},
        {claude, nested, "Could not serialize settings."}, // huge in our layout
        {claude, "{}", "Could not serialize settings.", "done", "/opt/\xE9/chimewell-hook"},
        {claude, "{}", helperMissing, "done", std::nullopt},
        {claude, "{}", lineBreak, "done", "/a\nb/chimewell-hook"},
        {codex, "", lineBreak, "done", "/a\rb/chimewell-hook"},
        {codex, "", "Could not encode config.toml.", "done", "/opt/\xE9/chimewell-hook"},
        {codex, "a = \"\xFF\"\n", "Could not read /home/me/.codex/config.toml: The file is not valid UTF-8.",
         "Could not read /home/me/.codex/config.toml: The file is not valid UTF-8."},
        {codex, "notify = [\"other\"] # chimewell-hook\n", taken},
        {codex, "text = '''\n''' \n'notify'=1\n", taken},
        {codex, "notify.program = \"other\"\n", taken},
        {codex, "a = 1\n[notify]\nx = 1\n", taken},
        {codex, "[a]\n[[notify]]\n", taken},
        {codex, "[ \"notify\" . x ]\n", taken},
        {codex, "notify = [\"/home/u/chain.sh\", \"/opt/chimewell-hook\"]\n", chain, chain},
        {codex, "notify = [ # mine\n  '/home/u/chimewell-hook/chain.sh',\n]\n", chain, chain},
    };
    for (const auto& [installer, before, install, uninstall, helper] : cases) {
        SCOPED_TRACE(before.substr(0, 100));
        files.contents.clear();
        file(installer) = before;
        resources.helper = helper;
        EXPECT_EQ(outcome(installer.install()).substr(0, install.size()), install);
        EXPECT_EQ(outcome(installer.uninstall()).substr(0, uninstall.size()), uninstall);
        EXPECT_EQ(file(installer), before);
        EXPECT_EQ(files.contents.size(), 1U); // no backup
        EXPECT_EQ(look(installer).isUsersChain, install == chain);
        EXPECT_EQ(look(installer).status.kind, install == chain      ? Status::installed
                                               : uninstall == "done" ? Status::notInstalled
                                                                     : Status::error);
    }
}

TEST_F(HookInstallerTest, RestoresTheOldestBackup)
{
    EXPECT_EQ(outcome(claude.restore()), "No Chimewell backup was found to restore from.");
    file(claude) = "{ \"mine\": 1 }";
    files.contents["/home/me/.claude/a settings.json.chimewell-backup-2020"] = "{}";
    EXPECT_EQ(claude.install()->backupPath, claudeBackup + "2026-03-01T14-00-00Z");
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

TEST_F(HookInstallerTest, SaysWhatFailed)
{
    file(claude) = "{}";
    files.unreadable = true;
    EXPECT_EQ(outcome(claude.install()), "Could not read /home/me/.claude/settings.json: Input/output error");
    EXPECT_EQ(english(claude.status().message), outcome(claude.uninstall()));
    files.unreadable = false;
    files.full = true;
    EXPECT_EQ(outcome(claude.install()), "Could not create backup: No space left on device");
    files.contents.clear();
    EXPECT_EQ(outcome(claude.install()),
              "Could not write /home/me/.claude/settings.json: No space left on device");
    files.contents[claudeBackup + "2025"] = "{}";
    EXPECT_EQ(outcome(claude.restore()), "Could not restore from backup: No space left on device");
}

TEST_F(HookInstallerTest, StartsAgainWhenTheAgentWritesMeanwhile)
{
    int writes = 0;
    files.beforeExchange = [&] {
        if (++writes < 5) file(claude) = "{\"n\": " + std::to_string(writes) + "}";
    };
    file(claude) = "{}";
    EXPECT_EQ(outcome(claude.install()), "done");
    EXPECT_EQ(file(claude), laidOut(R"({"n": 4, "hooks": {"Stop": [$finished], $rest}})"));
    files.beforeExchange = [&] { file(claude) = "{\"n\": " + std::to_string(++writes) + "}"; };
    EXPECT_EQ(outcome(claude.install()),
              "Could not write /home/me/.claude/settings.json: The file was changed by another program");
    EXPECT_EQ(writes, 10);
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
    EXPECT_TRUE(install[1].entry.starts_with("\"Stop\": [\n  {\n    \"matcher\": \"\","));
    ASSERT_TRUE(claude.install());
    EXPECT_TRUE(claude.changesByInstall()->empty());
    EXPECT_EQ(claude.changesByUninstall()->size(), 5U);

    file(codex) = notifyLine;
    const std::string line = notifyLine.substr(0, notifyLine.size() - 1);
    EXPECT_EQ(codex.changesByUninstall(), (std::vector{HookChange{HookChange::Kind::removed, line}}));
}

TEST_F(HookInstallerTest, OffersAnUpdateOnlyWhereItHelps)
{
    const auto none = std::optional<HookUpdate>();
    const struct {
        HookInstaller& installer;
        std::string content, replaced, by;
        int recorded;
        std::optional<HookUpdate> update;
    } cases[] = {
        {claude, claudeFile, "", "", 3, none},
        {claude, claudeFile, "", "", 2, HookUpdate::olderVersion},
        {claude, claudeFile, "Stop", "Mine", 3, none}, // removed on purpose
        {claude, claudeFile, "UserPromptSubmit", "Mine", 3, HookUpdate::reminderHooks},
        {claude, claudeFile, "PostToolUse", "Mine", 2, HookUpdate::reminderHooks},
        {claude, claudeFile, "/opt/(.*finished)", "/old/$1", 2, HookUpdate::otherHelper},
        // The same helper in the user's own words, and entries that an install leaves or that no agent reads.
        {claude, claudeFile, R"(\\"(/opt/[^\\]*)\\"(.*finished))", "$1$2 &", 3, none},
        {claude, claudeFile, R"("hooks": \{)",
         R"("hooks": {"Mine": [{"hooks": [{"command": "/old/chimewell-hook"}]}],)", 3, none},
        {claude, claudeFile, R"("Stop")",
         R"("Stop": [{"hooks": [{"command": "/old/chimewell-hook"}]}], "Stop")", 3, none},
        {cursor, R"({"hooks": {"stop": [{"command": "/opt/chimewell-hook cursor finished"}]}})", "", "", 1,
         none},
        {codex, notifyLine, "", "", 1, none},
        {codex, notifyLine, "/opt", "/old", 1, HookUpdate::otherHelper},
    };
    for (const auto& [installer, content, replaced, by, recorded, update] : cases) {
        file(installer) = std::regex_replace(content, std::regex(replaced), by);
        EXPECT_EQ(installer.status().kind, Status::installed) << file(installer);
        EXPECT_EQ(look(installer, recorded).update, update) << file(installer);
    }
    resources.helper.reset();
    EXPECT_EQ(look(codex).update, none); // it could not be made
    codex.helperPathOverride = "/new/chimewell-hook";
    EXPECT_EQ(look(codex).update, HookUpdate::otherHelper);
    const auto fingerprint = look(codex).fingerprint;
    file(codex) += "\n";
    EXPECT_NE(look(codex).fingerprint, fingerprint);
}

}
}
