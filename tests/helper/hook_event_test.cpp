// SPDX-License-Identifier: MIT
#include "helper/hook_event.h"

#include "helper/system.h"
#include "support/temporary_folder.h"
#include "values/event_payload.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

using namespace std::chrono_literals;

const std::string nothing = "nothing";

/// A payload of a real agent.
std::string captured(const std::string& name)
{
    std::ifstream file(std::string(CHIMEWELL_HOOK_PAYLOADS) + "/" + name + ".json", std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// One run of the program, without its process: what it sends.
struct HookRun {
    std::string provider;
    std::string event; ///< Not for Codex.
    std::string payload;
    std::string expected; ///< What follows type and provider, without `ts` and `v`; or `nothing`.
    std::vector<const char*> environment = {};
};

/// Gives the payload in windows that grow by `step`, which cuts it at every place if that is 1.
Payload read(const Invocation& invocation, std::string_view bytes, std::size_t step)
{
    PayloadReader reader(invocation);
    std::size_t begin = 0;
    for (std::size_t end = std::min(step, bytes.size()); reader.wantsMore();
         end = std::min(end + step, bytes.size())) {
        const bool last = end == bytes.size();
        begin += reader.feed(bytes.substr(begin, end - begin), last);
        if (last) break;
    }
    return reader.payload();
}

std::string sent(HookRun run, std::size_t step)
{
    const bool isCodex = run.provider == "codex";
    run.environment.push_back(nullptr);
    const std::vector<const char*> arguments = {isCodex ? "codex-notify" : run.provider.c_str(),
                                                isCodex ? run.payload.c_str() : run.event.c_str()};
    const auto invocation = parseInvocation(arguments);
    if (!invocation || invocation->payloadIsArgument != isCodex) return "no invocation";
    const Payload payload = read(*invocation, isCodex ? invocation->payload : run.payload, step);
    const std::chrono::system_clock::time_point now(1700000000007ms);
    const auto url = eventUrlFor(*invocation, payload, Environment(run.environment.data()), now);
    if (!url) return nothing;

    const std::string begin =
        "chimewell://event?type=" + (isCodex ? "finished" : run.event) + "&provider=" + run.provider;
    const std::string end = "&ts=1700000000.007&v=1";
    EXPECT_TRUE(url->starts_with(begin) && url->ends_with(end)) << *url;
    return url->substr(begin.size(), url->size() - begin.size() - end.size());
}

void expectSent(const std::vector<HookRun>& runs)
{
    for (const HookRun& run : runs)
        for (const std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{1} << 16})
            EXPECT_EQ(sent(run, step), run.expected)
                << run.provider << ' ' << run.event << ' ' << run.payload.substr(0, 200) << " by " << step;
}

TEST(HookEvent, IsWhatRealAgentsTell)
{
    const std::string claude = "&session=d74fe2e3-8e9f-490d-823f-4cee31b45be5";
    const std::string waiting = "&session=4b2adcfc-f9f3-499a-81d3-81c93a96b76f";
    const std::string cursor = "&session=cdefee2d-2727-4b73-bf77-d9d830f31d2a";
    const std::string project = "&cwd=%2Fhome%2Fdev%2Fproj%20ect";
    expectSent({
        {"claude", "finished", captured("claude_stop"), claude + project},
        {"claude", "waiting_input", captured("claude_notification_permission"),
         waiting + project + "&message=Claude%20needs%20your%20permission"},
        {"claude", "waiting_input", captured("claude_notification_idle"),
         waiting + project + "&message=Claude%20is%20waiting%20for%20your%20input"},
        {"claude", "subagent_finished", captured("claude_subagent_stop"),
         "&session=7b7d011a-c8c0-44c7-9a2d-c32bf0e258b5" + project},
        {"claude", "user_acted", captured("claude_user_prompt_submit"), claude + project},
        {"claude", "user_acted", captured("claude_post_tool_use"), claude + project},
        {"codex", "", captured("codex_turn"), "&session=01a204f4-aadf-7ad0-b2df-4e66d218c4ba" + project},
        {"codex", "", captured("codex_title_turn"), nothing},
        {"codex", "", captured("codex_subagent_turn"),
         "&session=01a204fb-4efd-75e1-bfca-058e57f5cadf" + project},
        {"cursor", "finished", captured("cursor_stop"), cursor + project},
        {"cursor", "subagent_finished", captured("cursor_stop"), cursor + project},
    });
}

TEST(HookEvent, MakesTheBestOfOddPayloads)
{
    expectSent({
        {"claude", "finished", "", ""},
        {"claude", "finished", "no JSON", ""},
        {"claude", "finished", R"(["session_id","S"])", ""},
        {"claude", "finished", "\xEF\xBB\xBF{\"session_id\":\"S\"}", "&session=S"},
        {"claude", "finished", R"({"session_id":7,"cwd":""})", ""},
        {"claude", "user_acted",
         R"({"tool_input":{"session_id":"I","cwd":"/i"},"a":[{"cwd":"/i"}],"cwd":"/o/","session_id":"O"})",
         "&session=O&cwd=%2Fo%2F"},
        {"claude", "finished", R"({"session_id":"first","session_id":"second","cwd":"/c"})",
         "&session=first&cwd=%2Fc"},
        {"claude", "finished",
         R"({"s\u0065ssion_id":"\u00e4\ud83d\ude42\ud83d \u0000\"","cwd":"/a%b&c#d+e`azAZ09-._~"})",
         "&session=%C3%A4%F0%9F%99%82%EF%BF%BD%20%22&cwd=%2Fa%25b%26c%23d%2Be%60azAZ09-._~"},
        // A value that the end of the input cuts is not half known but missing.
        {"claude", "finished", R"({"session_id":"S","cwd":"/home/de)", "&session=S"},
        {"claude", "finished", R"({"message":"the answer","prompt":"the prompt","title":"T"})", ""},
        {"claude", "waiting_input", R"({"message":"a\nb","notification_type":"new"})", "&message=a%0Ab"},
        {"claude", "waiting_input", R"({"notification_type":"auth_success"})", nothing},
        {"codex", "", "", ""},
        {"codex", "", R"({"type":"approval-requested","thread-id":"T"})", nothing},
        {"codex", "", R"({"thread-id":"T","last-assistant-message":null})", "&session=T"},
        // The user's own turns that have one sign of the hidden one.
        {"codex", "",
         R"({"input-messages":["Generate a concise, single-line task title, please"],"last-assistant-message":"x"})",
         ""},
        {"codex", "", R"({"input-messages":["Give me JSON"],"last-assistant-message":"{\"title\":\"x\"}"})",
         ""},
        {"cursor", "finished", R"({"conversation_id":"C","status":"aborted"})", nothing},
        {"cursor", "finished", R"({"status":"error","workspace_roots":["/a","/b"]})", "&cwd=%2Fa"},
        {"cursor", "finished", R"({"workspace_roots":"/a"})", ""},
    });
}

TEST(HookEvent, IsCompletedFromTheEnvironment)
{
    const std::vector<const char*> ofClaude = {"CLAUDE_CODE_SESSION_ID=E", "CLAUDE_PROJECT_DIR=/e\xFF",
                                               "TERM_PROGRAM=ghostty", "PWD=/elsewhere"};
    const std::vector<const char*> ofCursor = {"CURSOR_VERSION=3.7.21", "CURSOR_PROJECT_DIR=/e",
                                               "TERM_PROGRAM=ghostty"};
    expectSent({
        {"claude", "session_start", "", "&session=E&cwd=%2Fe%EF%BF%BD&term=ghostty", ofClaude},
        {"claude", "finished", R"({"session_id":"P"})", nothing, ofCursor},
        {"cursor", "finished", R"({"workspace_roots":[]})", "&cwd=%2Fe", ofCursor},
        {"codex", "", "", "&term=ghostty", ofClaude},
        {"codex", "", "", "&term=ghostty", ofCursor},
    });
}

TEST(HookEvent, NamesTheTerminal)
{
    const std::vector<std::pair<std::vector<const char*>, std::string>> cases = {
        {{"TERM=xterm-256color", "VTE_VERSION=7006"}, ""},
        {{"TERM_PROGRAM=Apple_Terminal"}, "Apple_Terminal"},
        {{"TERM_PROGRAM=", "TERM=xterm-kitty"}, "kitty"},
        {{"KITTY_WINDOW_ID=1"}, "kitty"},
        {{"ALACRITTY_WINDOW_ID=1"}, "Alacritty"},
        {{"WEZTERM_PANE=0"}, "WezTerm"},
        {{"TERM_PROGRAM=tmux", "TERM=tmux-256color", "KITTY_WINDOW_ID=1"}, "kitty"},
        {{"TERM_PROGRAM=screen", "WEZTERM_PANE=0"}, "WezTerm"},
        {{"KITTY_WINDOW_ID=1", "TERM_PROGRAM=vscode"}, "vscode"}, // VS Code started from kitty
        {{"TERM_PROGRAM=vscode", "CURSOR_TRACE_ID=1"}, ""},
        {{"TERM_PROGRAM=vscode", "VSCODE_GIT_ASKPASS_NODE=/opt/Cursor/cursor"}, ""},
        {{"TERM_PROGRAM=ghostty", "CURSOR_TRACE_ID=1"}, "ghostty"}, // started from Cursor's terminal
        {{"MY_TERM_PROGRAM=Hyper", "TERM_PROGRAMS=Hyper", "TERM_PROGRAM"}, ""},
    };
    for (const auto& [environment, terminal] : cases)
        expectSent({{"codex", "", "", terminal.empty() ? "" : "&term=" + terminal, environment}});
}

TEST(HomeFolder, IsThatOfTheUserDatabaseWithoutTheVariable)
{
    const TemporaryFolder folder;
    const auto users =
        folder.write("users", "a:x:10:1::/home/a:/bin/sh\nb:x:1:10:B:/home/b:/bin/sh\n1:x:2:1::odd");
    for (const auto& [variable, user, expected] : {std::tuple{"HOME=/h", 1U, "/h"},
                                                   {"HOME=", 1U, "/home/b"},
                                                   {"HOME=h", 10U, "/home/a"},
                                                   {"X=", 2U, "/"},
                                                   {"X=", 3U, "/"}}) {
        const std::vector<const char*> block = {variable, nullptr};
        EXPECT_EQ(homeFolder(Environment(block.data()), user, users.c_str()), expected) << variable << user;
    }
}

TEST(Invocation, IsRefusedWhenUnknown)
{
    EXPECT_FALSE(parseInvocation({}));
    for (const auto& arguments : std::vector<std::vector<const char*>>{
             {"claude"}, {"Claude", "finished"}, {"codex", "finished"}, {"claude", "Finished"}})
        EXPECT_FALSE(parseInvocation(arguments)) << arguments.back();
}

std::string encoded(std::string_view value)
{
    EventUrlBuilder builder(CanonicalEvent::finished, "claude");
    builder.add("cwd", value);
    const std::string url = std::move(builder).text();
    return url.substr(url.find("&cwd=") + 5);
}

TEST(EventUrl, IsAsciiWhateverTheValues)
{
    EXPECT_EQ(encoded(std::string_view("a\0b/é\n", 7)), "ab%2F%C3%A9%0A");
    EXPECT_EQ(encoded("\xED\xA0\x80|\xF0\x9F\x99"), // a surrogate, and a character cut short
              "%EF%BF%BD%EF%BF%BD%EF%BF%BD%7C%EF%BF%BD%EF%BF%BD%EF%BF%BD");
    const std::string filling(maxValueBytes - 1, 'x');
    EXPECT_EQ(encoded(filling + "yz"), filling + "y");
    EXPECT_EQ(encoded(filling + "é"), filling);
    EXPECT_EQ(encoded(filling.substr(2) + "\xF0\x9F\x99\x82"), filling.substr(2));
    EXPECT_EQ(encoded(std::string(maxValueBytes + 9, '\x80')).size(), 9 * (maxValueBytes - 3));
}

}
}
