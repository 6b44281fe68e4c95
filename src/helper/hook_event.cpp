// SPDX-License-Identifier: MIT
#include "helper/hook_event.h"

#include "base/percent.h"
#include "base/utf8.h"
#include "values/event_payload.h"
#include "values/provider.h"

namespace chimewell {

namespace {

std::string_view textOr(const std::optional<std::string>& text, std::string_view otherwise)
{
    return text && !text->empty() ? std::string_view(*text) : otherwise;
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
    const bool isClaude = invocation.provider == claudeProvider;
    const bool isCursor = invocation.provider == cursorProvider;
    if (payload.isIgnored) return std::nullopt;
    // Cursor can run the hooks of Claude Code beside its own, which report the same turn.
    if (isClaude && !environment["CURSOR_VERSION"].empty()) return std::nullopt;

    EventUrlBuilder url(invocation.event, invocation.provider);
    url.add("session", textOr(payload.session, isClaude ? environment["CLAUDE_CODE_SESSION_ID"] : ""));
    url.add("cwd", textOr(payload.cwd, isClaude   ? environment["CLAUDE_PROJECT_DIR"]
                                       : isCursor ? environment["CURSOR_PROJECT_DIR"]
                                                  : ""));
    url.add("message", textOr(payload.message, ""));
    // Cursor runs hooks from the editor: the name of a terminal in their environment is that of the one in
    // which the editor was started.
    if (!isCursor) url.add("term", terminalOf(environment));
    url.add("ts", secondsSince1970(now));
    url.add("v", "1");
    return std::move(url).text();
}

}
