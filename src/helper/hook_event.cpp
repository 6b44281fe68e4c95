// SPDX-License-Identifier: MIT
#include "helper/hook_event.h"

#include "base/percent.h"
#include "base/utf8.h"
#include "values/event_payload.h"

namespace chimewell {

namespace {

std::string_view textOr(const std::optional<std::string>& text, std::string_view otherwise)
{
    return text && !text->empty() ? std::string_view(*text) : otherwise;
}

/// What an agent tells its hooks by their environment: names of variables, empty if there is none.
struct Variables {
    std::string_view session = {};
    std::string_view folder = {};
    bool nameTheTerminal = true; ///< Those of `terminalOf`.
};

Variables variablesOf(Agent agent)
{
    switch (agent) {
    case Agent::claude:
        return {.session = "CLAUDE_CODE_SESSION_ID", .folder = "CLAUDE_PROJECT_DIR"};
    case Agent::codex:
        return {};
    case Agent::cursor:
        // It runs hooks from the editor: the terminal in their environment is the one in which that was
        // started.
        return {.folder = "CURSOR_PROJECT_DIR", .nameTheTerminal = false};
    }
    return {};
}

std::string secondsSince1970(std::chrono::system_clock::time_point time)
{
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch()).count();
    const std::string fraction = std::to_string(1000 + milliseconds % 1000);
    return std::to_string(milliseconds / 1000) + "." + fraction.substr(1);
}

}

EventUrlBuilder::EventUrlBuilder(CanonicalEvent event, std::string_view provider) : text_(eventUrlBeginning)
{
    text_.append(rawName(event)).append("&provider=").append(provider);
}

void EventUrlBuilder::add(std::string_view key, std::string_view value)
{
    if (value.empty()) return;
    text_.append("&").append(key).append("=");
    value = firstBytes(value, maxValueBytes);
    if (isValidUtf8(value) && !value.contains('\0')) return appendPercentEncoded(text_, value);
    while (!value.empty()) {
        const DecodedUtf8 decoded = decodeUtf8(value);
        const std::size_t size = decoded.isValid ? decoded.size : 1;
        const Utf8Character replacement(replacementCharacter);
        if (value.front() != '\0')
            appendPercentEncoded(text_, decoded.isValid ? value.substr(0, size) : replacement.bytes());
        value.remove_prefix(size);
    }
}

std::optional<std::string> eventUrlFor(const Invocation& invocation, const Payload& payload,
                                       const Environment& environment,
                                       std::chrono::system_clock::time_point now)
{
    if (payload.isIgnored) return std::nullopt;
    // Cursor can run the hooks of Claude Code beside its own, which report the same turn.
    if (invocation.agent == Agent::claude && !environment["CURSOR_VERSION"].empty()) return std::nullopt;

    const Variables variables = variablesOf(invocation.agent);
    const auto valueOf = [&](std::string_view name) { return name.empty() ? name : environment[name]; };
    EventUrlBuilder url(invocation.event, invocation.provider());
    url.add("session", textOr(payload.session, valueOf(variables.session)));
    url.add("cwd", textOr(payload.cwd, valueOf(variables.folder)));
    url.add("message", textOr(payload.message, ""));
    if (variables.nameTheTerminal) url.add("term", terminalOf(environment));
    url.add("ts", secondsSince1970(now));
    url.add("v", "1");
    return std::move(url).text();
}

}
