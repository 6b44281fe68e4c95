// SPDX-License-Identifier: MIT
#include "hooks/hook_installers.h"

#include "support/fake_time.h"
#include "support/fixed_home.h"
#include "support/memory_files.h"
#include "support/one_resource.h"

#include <gtest/gtest.h>

#include <optional>
#include <regex>
#include <string>
#include <tuple>
#include <vector>

namespace chimewell::test {

using namespace std::chrono_literals;

template<class Installer>
class InstallerTest : public ::testing::Test {
protected:
    std::optional<std::string> content() const
    {
        const auto found = files.contents.find(installer.settingsFileURL());
        return found == files.contents.end() ? std::nullopt : std::optional(found->second);
    }
    void write(const std::string& text) { files.contents[installer.settingsFileURL()] = text; }
    std::string installed(const std::string& before)
    {
        write(before);
        const auto result = installer.install();
        return result ? content().value_or("") : english(result.error().description());
    }
    std::string uninstalled(const std::string& before)
    {
        write(before);
        const auto result = installer.uninstall();
        return result ? content().value_or("") : english(result.error().description());
    }
    HookLook look(std::int64_t recorded = 0) const
    {
        return installer.look({.providerId = "", .hookVersion = recorded});
    }

    MemoryFiles files;
    FakeTime time;
    FixedHome home;
    OneResource resources;
    Installer installer{{.files = files, .clock = time, .folders = home, .resources = resources}};
};

using ClaudeHookInstallerTest = InstallerTest<ClaudeHookInstaller>;
using CodexHookInstallerTest = InstallerTest<CodexHookInstaller>;
using CursorHookInstallerTest = InstallerTest<CursorHookInstaller>;

std::string claudeGroup(const std::string& event)
{
    return R"([
      {
        "matcher": "",
        "hooks": [
          {
            "type": "command",
            "command": "\"/opt/chimewell-hook\" claude )" +
           event + R"("
          }
        ]
      }
    ])";
}

std::string claudeFile(const std::string& before = "")
{
    return "{\n" + before + "  \"hooks\": {\n    \"Stop\": " + claudeGroup("finished") +
           ",\n    \"Notification\": " + claudeGroup("waiting_input") +
           ",\n    \"SubagentStop\": " + claudeGroup("subagent_finished") +
           ",\n    \"UserPromptSubmit\": " + claudeGroup("user_acted") +
           ",\n    \"PostToolUse\": " + claudeGroup("user_acted") + "\n  }\n}\n";
}

constexpr char unparseable[] =
    "The existing settings file at /home/me/.claude/settings.json is not valid JSON. "
    "Refusing to modify it to avoid data loss. Please fix or remove it, then try again.";

TEST_F(ClaudeHookInstallerTest, MakesTheFileAndItsFolder)
{
    const auto state = installer.install();
    ASSERT_TRUE(state);
    EXPECT_EQ(content(), claudeFile());
    EXPECT_TRUE(files.folders.contains("/home/me/.claude"));
    EXPECT_EQ(*state, (ProviderInstallState{.providerId = "claude",
                                            .installed = true,
                                            .installedAt = time.now(),
                                            .settingsPath = "/home/me/.claude/settings.json",
                                            .hookVersion = 3}));
    EXPECT_FALSE(look().offersRestore);
    EXPECT_EQ(installer.status().kind, HookInstallStatus::Kind::installed);
}

TEST_F(ClaudeHookInstallerTest, GivesBackTheBytesOfAFileInItsLayout)
{
    for (const std::string before : {"{}\n", "{\n  \"model\": \"x\",\n  \"n\": 1.50\n}\n",
                                     "{\n  \"hooks\": {\n    \"Stop\": [\n      {\n        \"hooks\": [\n    "
                                     "      {\n            \"command\": "
                                     "\"say done\"\n          }\n        ]\n      }\n    ],\n    "
                                     "\"PreToolUse\": []\n  },\n  \"z\": true\n}\n"}) {
        const std::string once = installed(before);
        EXPECT_NE(once, before);
        EXPECT_EQ(installed(once), once);
        EXPECT_EQ(uninstalled(once), before);
        EXPECT_EQ(installer.status().kind, HookInstallStatus::Kind::notInstalled);
    }
}

TEST_F(ClaudeHookInstallerTest, KeepsEverythingThatIsNotOurs)
{
    const std::string old =
        R"({"a":1e5,"hooks":{"Stop":[{"hooks":[{"command":"/old/chimewell-hook claude done"}]},)"
        R"({"hooks":[{"command":"other"}]}],"Old":[{"hooks":[{"command":"chimewell-hook"},)"
        R"({"command":"mixed"}]},7]},"hooks2":{},"a":2})";
    const std::string text = installed(old);
    EXPECT_LT(text.find("\"a\": 1e5"), text.find("\"hooks\""));
    EXPECT_LT(text.find("\"other\""), text.find("claude finished")); // ours comes last
    EXPECT_EQ(text.find("/old/"), std::string::npos);
    EXPECT_NE(text.find("\"mixed\""), std::string::npos); // an event that is not in our table is left alone
    EXPECT_NE(text.find("\"a\": 2"), std::string::npos);

    EXPECT_EQ(uninstalled(text),
              "{\n  \"a\": 1e5,\n  \"hooks\": {\n    \"Stop\": [\n      {\n        \"hooks\": [\n"
              "          {\n            \"command\": \"other\"\n          }\n        ]\n      }\n"
              "    ],\n    \"Old\": [\n      7\n    ]\n  },\n  \"hooks2\": {},\n  \"a\": 2\n}\n");
}

TEST_F(ClaudeHookInstallerTest, RefusesWhatItDoesNotUnderstand)
{
    for (const std::string text : {"", "{", "[]", "{} x", "\xFF", "\xEF\xBB\xBF{}", R"({"hooks": null})",
                                   R"({"hooks": []})", R"({"hooks": {"Stop": {}}})"}) {
        EXPECT_EQ(installed(text), unparseable) << text;
        EXPECT_EQ(content(), text);
    }
    EXPECT_EQ(uninstalled("{"), unparseable);
    EXPECT_EQ(english(installer.status().message), unparseable);
    EXPECT_EQ(uninstalled(R"({"hooks": null})"), R"({"hooks": null})"); // nothing of ours: not written
    EXPECT_EQ(files.contents.size(), 1u);                               // and never a backup
    // Small as text and huge in the writer's layout.
    EXPECT_EQ(installed("{\"a\":" + std::string(100'000, '[') + std::string(100'000, ']') + "}"),
              "Could not serialize settings.");
}

TEST_F(ClaudeHookInstallerTest, EscapesTheHelpersPathForTheShell)
{
    installer.helperPathOverride = "/opt/a b/$(x)`\"\\/chimewell-hook";
    EXPECT_NE(
        installed("{}").find(R"("command": "\"/opt/a b/\\$(x)\\`\\\"\\\\/chimewell-hook\" claude finished")"),
        std::string::npos)
        << *content();
    for (const char* path : {"/a\nb/chimewell-hook", "/a\rb/chimewell-hook"}) {
        installer.helperPathOverride = path;
        EXPECT_EQ(
            installed("{}"),
            "The chimewell-hook helper lies in a folder with a line break in its name, where no agent can "
            "call it. Please move Chimewell to another folder.");
    }
    EXPECT_EQ(installer.install().error().kind, HookInstallerError::Kind::helperMissing);
    installer.helperPathOverride.reset();
    resources.helper.reset();
    EXPECT_EQ(installer.install().error().kind, HookInstallerError::Kind::helperMissing);
}

TEST_F(ClaudeHookInstallerTest, RestoresTheOldestBackup)
{
    const std::string original = "{ \"mine\": 1 }";
    write(original);
    EXPECT_EQ(english(installer.restore().error().description()),
              "No Chimewell backup was found to restore from.");
    EXPECT_EQ(installer.install()->backupPath,
              "/home/me/.claude/settings.json.chimewell-backup-2026-03-01T14-00-00Z");
    time.advance(1s);
    ASSERT_TRUE(installer.install());
    EXPECT_EQ(files.contents.size(), 3u);

    const auto state = installer.restore();
    ASSERT_TRUE(state);
    EXPECT_FALSE(state->installed);
    EXPECT_EQ(content(), original);
    EXPECT_TRUE(look().offersRestore);
    files.contents["/home/me/.claude/settings.json.chimewell-backup-2025"] = claudeFile();
    EXPECT_FALSE(look().offersRestore);
    EXPECT_TRUE(installer.restore() && content() == claudeFile());
}

TEST_F(ClaudeHookInstallerTest, SaysWhatFailed)
{
    write("{}");
    files.unreadable = true;
    EXPECT_EQ(english(installer.install().error().description()),
              "Could not read /home/me/.claude/settings.json: Input/output error");
    EXPECT_EQ(installer.status().kind, HookInstallStatus::Kind::error);
    files.unreadable = false;
    files.full = true;
    EXPECT_EQ(english(installer.install().error().description()),
              "Could not create backup: No space left on device");
    EXPECT_EQ(content(), "{}");
    files.contents.clear();
    EXPECT_EQ(english(installer.install().error().description()),
              "Could not write /home/me/.claude/settings.json: No space left on device");
    files.contents["/home/me/.claude/settings.json.chimewell-backup-2025-01-01T00-00-00Z"] = "{}";
    EXPECT_EQ(english(installer.restore().error().description()),
              "Could not restore from backup: No space left on device");
}

TEST_F(ClaudeHookInstallerTest, StartsOverWhenTheAgentWritesMeanwhile)
{
    int writes = 0;
    files.beforeExchange = [&] {
        if (++writes == 1) write("{\n  \"by\": \"agent\"\n}\n");
    };
    write("{}");
    ASSERT_TRUE(installer.install());
    EXPECT_EQ(content(), claudeFile("  \"by\": \"agent\",\n"));

    files.beforeExchange = [&] { write("{\"n\": " + std::to_string(++writes) + "}"); };
    EXPECT_EQ(english(installer.install().error().description()),
              "Could not write /home/me/.claude/settings.json: Somebody else changed it");
}

TEST_F(ClaudeHookInstallerTest, TellsWhatWouldChange)
{
    write(R"({"hooks":{"Stop":[{"hooks":[{"command":"/old/chimewell-hook claude done"}]}]}})");
    const auto install = installer.changesByInstall();
    ASSERT_TRUE(install);
    ASSERT_EQ(install->size(), 6u);
    EXPECT_EQ(install->at(0), (HookChange{HookChange::Kind::removed,
                                          "\"Stop\": [\n  {\n    \"hooks\": [\n      {\n        \"command\": "
                                          "\"/old/chimewell-hook claude done\"\n      }\n    ]\n  }\n]"}));
    EXPECT_EQ(install->at(1).kind, HookChange::Kind::added);
    EXPECT_EQ(install->at(1).entry.find("\"Stop\": [\n  {\n    \"matcher\": \"\","), 0u);

    ASSERT_TRUE(installer.install());
    EXPECT_TRUE(installer.changesByInstall()->empty());
    EXPECT_EQ(installer.changesByUninstall()->size(), 5u);
}

TEST_F(ClaudeHookInstallerTest, AnUpdateIsDueOnlyWhereItDoesGood)
{
    const auto none = std::optional<HookUpdate>();
    const std::tuple<const char*, const char*, int, std::optional<HookUpdate>> cases[] = {
        {"", "", 3, none},
        {"", "", 2, HookUpdate::olderVersion},
        {"Stop", "Mine", 3, none}, // on purpose
        {"UserPromptSubmit", "Mine", 3, HookUpdate::reminderHooks},
        {"PostToolUse", "Mine", 2, HookUpdate::reminderHooks},
        {"/opt/(.*finished)", "/old/$1", 2, HookUpdate::otherHelper},
        {R"(\\"(/opt/[^\\]*)\\"(.*finished))", "$1$2 &", 3, none}, // the same helper as the user wrote it
        {R"("hooks": \{)", R"("hooks": {"Mine": [{"hooks": [{"command": "/old/chimewell-hook"}]}],)", 3,
         none},
        {R"("Stop")", R"("Stop": [{"hooks": [{"command": "/old/chimewell-hook"}]}], "Stop")", 3,
         none}, // unread
    };
    for (const auto& [replaced, by, recorded, due] : cases) {
        write(std::regex_replace(claudeFile(), std::regex(replaced), by));
        EXPECT_EQ(installer.status().kind, HookInstallStatus::Kind::installed) << *content();
        EXPECT_EQ(look(recorded).update, due) << *content();
    }
    resources.helper.reset();
    EXPECT_EQ(look().update, std::nullopt);
}

TEST_F(CursorHookInstallerTest, WritesTheDocumentedForm)
{
    ASSERT_TRUE(installer.install());
    EXPECT_EQ(content(), R"({
  "version": 1,
  "hooks": {
    "stop": [
      {
        "command": "\"/opt/chimewell-hook\" cursor finished"
      }
    ],
    "subagentStop": [
      {
        "command": "\"/opt/chimewell-hook\" cursor subagent_finished"
      }
    ]
  }
}
)");
    EXPECT_EQ(uninstalled(*content()), "{\n  \"version\": 1,\n  \"hooks\": {}\n}\n");

    const std::string text = installed(R"({"hooks":{"stop":[{"command":"mine"}]},"version":2})");
    EXPECT_LT(text.find("mine"), text.find("cursor finished"));
    EXPECT_NE(text.find("\"version\": 2"), std::string::npos);
    EXPECT_EQ(installed(text), text);
    write(R"({"hooks":{"stop":[{"command":"/opt/chimewell-hook cursor finished"}]}})");
    EXPECT_EQ(look(1).update, std::nullopt); // the other one is not missed
}

constexpr char ours[] = "notify = [\"/opt/chimewell-hook\", \"codex-notify\"]\n";
constexpr char taken[] =
    "Codex supports only a single `notify` program, and ~/.codex/config.toml already has one "
    "configured. Remove it (or chain Chimewell into it) first, then install again.";

TEST_F(CodexHookInstallerTest, EditsItsOwnLineAlone)
{
    const std::string line = ours;
    const struct {
        std::string before;
        std::string after;
        std::string uninstalled; ///< Again.
    } cases[] = {
        {"", line, ""},
        {"# mine\nmodel = \"x\"\n", line + "# mine\nmodel = \"x\"\n", "# mine\nmodel = \"x\"\n"},
        {"a = 1", line + "a = 1\n", "a = 1\n"},
        {"a = 1\r\nb = 2\r\n", line + "a = 1\r\nb = 2\r\n", "a = 1\r\nb = 2\r\n"},
        {"\xEF\xBB\xBF"
         "a = 1\n",
         "\xEF\xBB\xBF" + line + "a = 1\n",
         "\xEF\xBB\xBF"
         "a = 1\n"},
        {"[profiles.x]\nnotify = [\"other\"]\n", line + "[profiles.x]\nnotify = [\"other\"]\n",
         "[profiles.x]\nnotify = [\"other\"]\n"},
        {"notify_x = 1\n# notify = 2\n", line + "notify_x = 1\n# notify = 2\n",
         "notify_x = 1\n# notify = 2\n"},
        {"a = 1\n \tnotify\t=[\"/old/chimewell-hook\"]\nb = 2\n", "a = 1\n" + line + "b = 2\n",
         "a = 1\nb = 2\n"},
        {"notify=[\n  \"/old/chimewell-hook\", # x ]\n  \"codex-notify\",\n]\nb = 2\n", line + "b = 2\n",
         "b = 2\n"},
        {"\"notify\" = [\"chimewell-hook\"]\n", line, ""},
        {"notify = [ # x\n  '/old/chimewell-hook', 'other']\n", line, ""},
        {"notify = [\"\"\"\n/old/\\u0063hime\\\n  well-hook\"\"\"]\n", line, ""},
        {"text = \"\"\"\nnotify = [\"other\"]\n[x]\n\"\"\"\n",
         line + "text = \"\"\"\nnotify = [\"other\"]\n[x]\n\"\"\"\n",
         "text = \"\"\"\nnotify = [\"other\"]\n[x]\n\"\"\"\n"},
        {"list = [\n[1],\nnotify = 2\n]\nnotify = \"chimewell-hook\"\n",
         "list = [\n[1],\nnotify = 2\n]\n" + line, "list = [\n[1],\nnotify = 2\n]\n"},
    };
    for (const auto& c : cases) {
        write(c.before);
        EXPECT_EQ(look(1).update.has_value(), c.before.contains("-hook"));
        EXPECT_EQ(installed(c.before), c.after) << c.before;
        EXPECT_EQ(installed(c.after), c.after) << c.before;
        EXPECT_EQ(uninstalled(c.after), c.uninstalled) << c.before;
        EXPECT_EQ(installer.status().kind, HookInstallStatus::Kind::notInstalled);
    }
}

TEST_F(CodexHookInstallerTest, NeverTouchesAnotherNotifyProgram)
{
    for (const std::string before :
         {"notify = [\"other\"] # no chimewell-hook\n", "a = 1\n'notify' = [\"other\"]\n",
          "text = '''\n''' \nnotify=1\n", "notify.program = \"other\"\n", "[notify]\nx = 1\n",
          "[a]\n[[notify]]\n", "[ \"notify\" . x ]\n"}) {
        EXPECT_EQ(installed(before), taken) << before;
        EXPECT_EQ(content(), before);
        EXPECT_EQ(uninstalled(before), before);
    }
    EXPECT_EQ(installed("a = \"\xFF\"\n"),
              "Could not read /home/me/.codex/config.toml: The file is not valid UTF-8.");
    EXPECT_EQ(files.contents.size(), 1u); // never a backup
}

TEST_F(CodexHookInstallerTest, LeavesAChainOfTheUsersAlone)
{
    for (const std::string before :
         {"notify = [\"/home/u/chain.sh\", \"x\", \"/opt/chimewell-hook\", \"codex-notify\"]\n",
          "notify = [ # mine\n  '/home/u/chimewell-hook/chain.sh',\n]\n"}) {
        for (const std::string& said : {installed(before), uninstalled(before)})
            EXPECT_EQ(said.find("Codex calls Chimewell through a `notify` chain of your own"), 0u) << said;
        EXPECT_EQ(content(), before);
        EXPECT_EQ(look().status.kind, HookInstallStatus::Kind::installed);
        EXPECT_TRUE(look().isUsersChain && !look().update) << before;
        files.contents[installer.settingsFileURL().string() + ".chimewell-backup-2025"] = before;
        EXPECT_TRUE(look().offersRestore); // an older build may have replaced it
    }
}

TEST_F(CodexHookInstallerTest, EscapesTheHelpersPathForToml)
{
    installer.helperPathOverride = "C:\\a\"b\x01/chimewell-hook";
    EXPECT_EQ(installed(""), "notify = [\"C:\\\\a\\\"b\\u0001/chimewell-hook\", \"codex-notify\"]\n");
    EXPECT_EQ(look(1).update, std::nullopt);
}

}
