// SPDX-License-Identifier: MIT
#include "helper/hook_event.h"

#include "helper/agent_input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view nothing = "nothing";
const std::string claudeSession = "&session=d74fe2e3-8e9f-490d-823f-4cee31b45be5";
const std::string project = "&cwd=%2Fhome%2Fdev%2Fproj%20ect";

std::string captured(const std::string& name)
{
    std::ifstream file(std::string(CHIMEWELL_HOOK_PAYLOADS) + "/" + name + ".json", std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string nested(std::size_t depth)
{
    return R"({"deep":)" + std::string(depth, '[') + std::string(depth, ']') + R"(,"session_id":"S"})";
}

/// One run of the program, without its process: what it sends after the fixed beginning of the URL.
struct HookRun {
    std::vector<const char*> arguments;
    std::string payload;
    std::string expected; ///< From `type=` on, without `ts` and `v`; or `nothing`.
    std::vector<const char*> environment = {};
};

std::ostream& operator<<(std::ostream& out, const HookRun& run)
{
    for (const char* const argument : run.arguments)
        out << argument << ' ';
    return out << run.payload.substr(0, 200);
}

/// Gives the payload in windows that grow by `step`, which cuts it at every place if that is 1.
Payload read(const Invocation& command, std::string_view bytes, std::size_t step)
{
    PayloadReader reader(command);
    std::size_t begin = 0;
    for (std::size_t end = std::min(step, bytes.size()); reader.wantsMore();
         end = std::min(end + step, bytes.size())) {
        const bool last = end == bytes.size();
        begin += reader.feed(bytes.substr(begin, end - begin), last);
        if (last) break;
    }
    return reader.payload();
}

std::string sent(const HookRun& run, std::size_t step)
{
    auto block = run.environment;
    block.push_back(nullptr);
    const auto command = parseInvocation(run.arguments);
    if (!command) return "no command";
    const Payload payload = read(*command, command->payloadIsArgument ? command->payload : run.payload, step);
    const std::chrono::system_clock::time_point now(1700000000007ms);
    const auto url = eventUrlFor(*command, payload, Environment(block.data()), now);
    if (!url) return std::string(nothing);

    const std::string begin = "chimewell://event?";
    const std::string end = "&ts=1700000000.007&v=1";
    EXPECT_TRUE(url->starts_with(begin) && url->ends_with(end)) << *url;
    return url->substr(begin.size(), url->size() - begin.size() - end.size());
}

class HookEvent : public testing::TestWithParam<HookRun> {};

TEST_P(HookEvent, IsWhatThePayloadAndTheEnvironmentTell)
{
    HookRun run = GetParam();
    if (run.arguments[0] == std::string_view("codex-notify") && !run.payload.empty())
        run.arguments.push_back(run.payload.c_str());
    for (const std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{1} << 16})
        EXPECT_EQ(sent(run, step), run.expected) << "in steps of " << step;
}

INSTANTIATE_TEST_SUITE_P(
    OfRealPayloads, HookEvent,
    testing::Values(
        HookRun{{"claude", "finished"},
                captured("claude_stop"),
                "type=finished&provider=claude" + claudeSession + project},
        HookRun{{"claude", "waiting_input"},
                captured("claude_notification_permission"),
                "type=waiting_input&provider=claude&session=4b2adcfc-f9f3-499a-81d3-81c93a96b76f" + project +
                    "&message=Claude%20needs%20your%20permission"},
        HookRun{{"claude", "waiting_input"},
                captured("claude_notification_idle"),
                "type=waiting_input&provider=claude&session=4b2adcfc-f9f3-499a-81d3-81c93a96b76f" + project +
                    "&message=Claude%20is%20waiting%20for%20your%20input"},
        HookRun{{"claude", "subagent_finished"},
                captured("claude_subagent_stop"),
                "type=subagent_finished&provider=claude&session=7b7d011a-c8c0-44c7-9a2d-c32bf0e258b5" +
                    project},
        HookRun{{"claude", "user_acted"},
                captured("claude_user_prompt_submit"),
                "type=user_acted&provider=claude" + claudeSession + project},
        HookRun{{"claude", "user_acted"},
                captured("claude_post_tool_use"),
                "type=user_acted&provider=claude" + claudeSession + project},
        HookRun{{"codex-notify"},
                captured("codex_turn"),
                "type=finished&provider=codex&session=01a204f4-aadf-7ad0-b2df-4e66d218c4ba" + project},
        HookRun{{"codex-notify"}, captured("codex_title_turn"), std::string(nothing)},
        HookRun{{"codex-notify"},
                captured("codex_subagent_turn"),
                "type=finished&provider=codex&session=01a204fb-4efd-75e1-bfca-058e57f5cadf" + project},
        HookRun{{"cursor", "finished"},
                captured("cursor_stop"),
                "type=finished&provider=cursor&session=cdefee2d-2727-4b73-bf77-d9d830f31d2a" + project},
        HookRun{{"cursor", "subagent_finished"},
                captured("cursor_stop"),
                "type=subagent_finished&provider=cursor&session=cdefee2d-2727-4b73-bf77-d9d830f31d2a" +
                    project}));

INSTANTIATE_TEST_SUITE_P(
    OfOddPayloads, HookEvent,
    testing::Values(
        HookRun{{"claude", "finished"}, "", "type=finished&provider=claude"},
        HookRun{{"claude", "finished"}, "no JSON", "type=finished&provider=claude"},
        HookRun{{"claude", "finished"}, R"(["session_id","S"])", "type=finished&provider=claude"},
        HookRun{{"claude", "finished"}, R"([{"session_id":"S"}])", "type=finished&provider=claude"},
        HookRun{{"claude", "finished"},
                "\xEF\xBB\xBF{\"session_id\":\"S\"}",
                "type=finished&provider=claude&session=S"},
        HookRun{{"claude", "finished"}, R"({"session_id":7,"cwd":""})", "type=finished&provider=claude"},
        HookRun{{"claude", "finished"},
                R"({"session_id":{"cwd":"/x"},"cwd":["/y"]})",
                "type=finished&provider=claude"},
        HookRun{
            {"claude", "user_acted"},
            R"({"tool_input":{"session_id":"inner","cwd":"/inner"},"a":[{"cwd":"/inner"}],"cwd":"/o/","session_id":"O"})",
            "type=user_acted&provider=claude&session=O&cwd=%2Fo%2F"},
        HookRun{{"claude", "finished"},
                R"({"session_id":"first","session_id":"second","cwd":"/c"})",
                "type=finished&provider=claude&session=first&cwd=%2Fc"},
        HookRun{
            {"claude", "finished"},
            R"({"s\u0065ssion_id":"\u00e4\ud83d\ude42\ud83d \u0000\"","cwd":"/a%b&c#d+e"})",
            "type=finished&provider=claude&session=%C3%A4%F0%9F%99%82%EF%BF%BD%20%22&cwd=%2Fa%25b%26c%23d%"
            "2Be"},
        // A value that the end of the input cuts is not half known but missing.
        HookRun{{"claude", "finished"},
                R"({"session_id":"S","cwd":"/home/de)",
                "type=finished&provider=claude&session=S"},
        HookRun{{"claude", "finished"},
                R"({"session_id":"S",]"cwd":"/c"})",
                "type=finished&provider=claude&session=S"},
        HookRun{{"claude", "finished"}, nested(100), "type=finished&provider=claude&session=S"},
        HookRun{{"claude", "finished"},
                R"({"message":"the answer","prompt":"the prompt","title":"T"})",
                "type=finished&provider=claude"},
        HookRun{{"claude", "waiting_input"},
                R"({"message":"one\ntwo","notification_type":"new_kind"})",
                "type=waiting_input&provider=claude&message=one%0Atwo"},
        HookRun{{"claude", "waiting_input"}, R"({"notification_type":"auth_success"})", std::string(nothing)},
        HookRun{{"claude", "waiting_input"},
                R"({"notification_type":"elicitation_complete"})",
                std::string(nothing)},
        HookRun{{"claude", "waiting_input"},
                R"({"notification_type":"elicitation_response"})",
                std::string(nothing)},
        HookRun{{"claude", "waiting_input"},
                R"({"notification_type":"computer_use_enter"})",
                std::string(nothing)},
        HookRun{{"claude", "waiting_input"},
                R"({"notification_type":"computer_use_exit"})",
                std::string(nothing)},
        HookRun{{"claude", "waiting_input"},
                R"({"notification_type":"push_notification"})",
                std::string(nothing)},
        HookRun{{"codex-notify"}, "", "type=finished&provider=codex"},
        HookRun{{"codex-notify"}, R"({"type":"approval-requested","thread-id":"T"})", std::string(nothing)},
        HookRun{{"codex-notify"},
                R"({"thread-id":"T","last-assistant-message":null})",
                "type=finished&provider=codex&session=T"},
        // The user's own turns that have one sign of the hidden one.
        HookRun{
            {"codex-notify"},
            R"({"input-messages":["Generate a concise, single-line task title, please"],"last-assistant-message":"Fix"})",
            "type=finished&provider=codex"},
        HookRun{{"codex-notify"},
                R"({"input-messages":["Give me JSON"],"last-assistant-message":"{\"title\":\"x\"}"})",
                "type=finished&provider=codex"},
        HookRun{
            {"codex-notify"},
            R"({"input-messages":["Generate a concise, single-line task title of","b"],"last-assistant-message":"{\"title\":1}"})",
            "type=finished&provider=codex"},
        HookRun{
            {"codex-notify"},
            R"({"input-messages":["Generate a concise, single-line task title of"],"last-assistant-message":"{\"title\":1,\"b\":2}"})",
            "type=finished&provider=codex"},
        HookRun{
            {"cursor", "finished"}, R"({"conversation_id":"C","status":"aborted"})", std::string(nothing)},
        HookRun{{"cursor", "finished"},
                R"({"status":"error","workspace_roots":["/a","/b"]})",
                "type=finished&provider=cursor&cwd=%2Fa"},
        HookRun{
            {"cursor", "finished"}, R"({"workspace_roots":[["/a"],"/b"]})", "type=finished&provider=cursor"},
        HookRun{{"cursor", "finished"}, R"({"workspace_roots":"/a"})", "type=finished&provider=cursor"}));

INSTANTIATE_TEST_SUITE_P(
    OfTheEnvironment, HookEvent,
    testing::Values(HookRun{{"claude", "session_start"},
                            "",
                            "type=session_start&provider=claude&session=E&cwd=%2Fe%EF%BF%BD&term=ghostty",
                            {"CLAUDE_CODE_SESSION_ID=E", "CLAUDE_PROJECT_DIR=/e\xFF", "TERM_PROGRAM=ghostty",
                             "PWD=/elsewhere"}},
                    HookRun{{"claude", "tool_use"},
                            R"({"session_id":"P","cwd":"/p"})",
                            "type=tool_use&provider=claude&session=P&cwd=%2Fp",
                            {"CLAUDE_CODE_SESSION_ID=E", "CLAUDE_PROJECT_DIR=/e"}},
                    HookRun{{"claude", "finished"},
                            R"({"session_id":"P"})",
                            std::string(nothing),
                            {"CURSOR_VERSION=3.7.21"}},
                    HookRun{{"cursor", "finished"},
                            R"({"workspace_roots":[]})",
                            "type=finished&provider=cursor&cwd=%2Fe",
                            {"CURSOR_VERSION=3.7.21", "CURSOR_PROJECT_DIR=/e", "TERM_PROGRAM=ghostty"}},
                    HookRun{{"codex-notify"},
                            "",
                            "type=finished&provider=codex&term=kitty",
                            {"CLAUDE_PROJECT_DIR=/e", "CURSOR_VERSION=3.7.21", "KITTY_WINDOW_ID=1"}}));

TEST(PayloadReader, GivesUpOnHostileNesting)
{
    PayloadReader reader({.provider = "claude"});
    const std::string window = R"({"deep":)" + std::string(60000, '[');
    reader.feed(window, false);
    EXPECT_FALSE(reader.wantsMore());
}

TEST(PayloadReader, KnowsEnoughBeforeTheEnd)
{
    PayloadReader reader({.provider = "claude"});
    reader.feed(R"({"session_id":"S","cwd":"/c","tool_input":"long)", false);
    EXPECT_FALSE(reader.wantsMore());
    EXPECT_EQ(reader.payload().session, "S");
}

TEST(PayloadReader, KeepsLittleOfALongValue)
{
    PayloadReader reader({.provider = "claude"});
    reader.feed(R"({"cwd":")" + std::string(1000000, 'x') + R"(","session_id":"S"})", true);
    EXPECT_EQ(reader.payload().cwd.value_or("").size(), maxValueBytes + 1);
    EXPECT_EQ(reader.payload().session, "S");
}

TEST(Invocation, RefusesWhatItDoesNotKnow)
{
    const std::vector<std::vector<const char*>> unknown = {{},
                                                           {"claude"},
                                                           {"claude", "Finished"},
                                                           {"claude", "Stop"},
                                                           {"codex", "finished"},
                                                           {"Claude", "finished"},
                                                           {""}};
    for (const auto& arguments : unknown)
        EXPECT_FALSE(parseInvocation(arguments)) << (arguments.empty() ? "" : arguments.back());
}

}
}
