// SPDX-License-Identifier: MIT
#include "helper/agent_input.h"

#include "base/utf8.h"
#include "values/shared_names.h"

#include <algorithm>

namespace chimewell {

namespace {

constexpr std::size_t maxKeyBytes = 32; // longer than every key we look for
constexpr std::size_t maxDepth = 10000;

/// Notifications of Claude Code that ask nothing of the user.
constexpr std::string_view ignoredNotifications[] = {
    "auth_success",       "elicitation_complete", "elicitation_response",
    "computer_use_enter", "computer_use_exit",    "push_notification",
};

/// How Codex begins the prompt of the hidden turn in which it finds a title for a new thread.
constexpr std::string_view titlePrompt = "Generate a concise, single-line task title";
constexpr std::size_t maxTitleAnswerBytes = 4096;

void append(std::string& text, std::string_view piece, std::size_t limit)
{
    text.append(piece.substr(0, limit > text.size() ? limit - text.size() : 0));
}

/// Accepts an object whose only member is "title".
class TitleAnswer {
public:
    void beginObject() { open(true); }
    void endObject() { --depth_; }
    void beginArray() { open(false); }
    void endArray() { --depth_; }
    void key(std::string_view piece, bool last)
    {
        if (depth_ != 1) return;
        append(key_, piece, maxKeyBytes);
        if (!last) return;
        ++members_;
        named_ = key_ == "title";
        key_.clear();
    }
    void string(std::string_view, bool) {}
    void number(std::string_view, bool) {}
    void boolean(bool) {}
    void null() {}

    bool matches() const { return isObject_ && members_ == 1 && named_; }

private:
    void open(bool object)
    {
        if (depth_++ == 0) isObject_ = object;
    }

    std::size_t depth_ = 0;
    std::size_t members_ = 0;
    bool isObject_ = false;
    bool named_ = false;
    std::string key_;
};

bool isTitleAnswer(std::string_view text)
{
    TitleAnswer answer;
    JSONReader<TitleAnswer> reader(answer);
    reader.feed(text, true);
    return reader.finished() && reader.fault() == JSONFault::none && answer.matches();
}

}

std::optional<Invocation> parseInvocation(std::span<const char* const> arguments)
{
    if (arguments.empty()) return std::nullopt;
    const std::string_view first = arguments[0];
    const std::string_view second = arguments.size() > 1 ? arguments[1] : std::string_view();
    if (first == codexNotifyCommand)
        return Invocation{.agent = Agent::codex, .payloadIsArgument = true, .payload = second};

    const auto event = eventNamed(second);
    if (!event) return std::nullopt;
    if (first == claudeProvider) return Invocation{.agent = Agent::claude, .event = *event};
    if (first == cursorProvider) return Invocation{.agent = Agent::cursor, .event = *event};
    return std::nullopt;
}

PayloadReader::PayloadReader(const Invocation& invocation) : invocation_(invocation)
{
    switch (invocation.agent) {
    case Agent::claude:
        collector_.lookFor(Role::session, "session_id");
        collector_.lookFor(Role::cwd, "cwd");
        if (invocation.event != CanonicalEvent::waitingInput) return;
        collector_.lookFor(Role::message, "message");
        collector_.lookFor(Role::kind, "notification_type");
        return;
    case Agent::codex:
        collector_.lookFor(Role::session, "thread-id");
        collector_.lookFor(Role::cwd, "cwd");
        collector_.lookFor(Role::kind, "type");
        collector_.lookFor(Role::prompts, "input-messages", true, titlePrompt.size());
        collector_.lookFor(Role::answer, "last-assistant-message", false, maxTitleAnswerBytes);
        return;
    case Agent::cursor:
        collector_.lookFor(Role::session, "conversation_id");
        collector_.lookFor(Role::cwd, "workspace_roots", true);
        collector_.lookFor(Role::kind, "status");
        return;
    }
}

std::size_t PayloadReader::feed(std::string_view window, bool last)
{
    std::size_t skipped = 0;
    if (atStart_) {
        if (!last && window.size() < byteOrderMark.size() && byteOrderMark.starts_with(window)) return 0;
        skipped = byteOrderMarkSize(window);
        atStart_ = false;
    }
    return skipped + reader_.feed(window.substr(skipped), last);
}

bool PayloadReader::wantsMore() const
{
    return !collector_.isComplete() && !reader_.finished() && reader_.fault() == JSONFault::none &&
           reader_.depth() <= maxDepth;
}

Payload PayloadReader::payload() const
{
    return {.session = collector_[Role::session].text(),
            .cwd = collector_[Role::cwd].text(),
            .message = collector_[Role::message].text(),
            .isIgnored = isIgnored()};
}

bool PayloadReader::isIgnored() const
{
    const auto kind = collector_[Role::kind].text();
    switch (invocation_.agent) {
    case Agent::claude:
        return kind && std::ranges::find(ignoredNotifications, *kind) != std::end(ignoredNotifications);
    case Agent::codex:
        return (kind && *kind != "agent-turn-complete") || isTitleTurn();
    case Agent::cursor:
        return kind == "aborted"; // by the user, who is there
    }
    return false;
}

/// Either sign alone could be the user's own turn.
bool PayloadReader::isTitleTurn() const
{
    const Member& prompts = collector_[Role::prompts];
    const Member& answer = collector_[Role::answer];
    return prompts.elements == 1 && prompts.isText && prompts.collected.starts_with(titlePrompt) &&
           answer.isText && isTitleAnswer(answer.collected);
}

void PayloadReader::Collector::lookFor(Role role, std::string_view key, bool isList, std::size_t limit)
{
    members_[static_cast<std::size_t>(role)] = {.key = key, .isList = isList, .limit = limit};
    ++unseen_;
}

void PayloadReader::Collector::key(std::string_view piece, bool last)
{
    if (depth_ != 1) return;
    append(key_, piece, maxKeyBytes);
    if (!last) return;
    const auto wanted = std::ranges::find_if(members_, [&](const Member& member) {
        return !member.key.empty() && member.key == key_ && !member.seen;
    });
    current_ = wanted != members_.end() ? &*wanted : nullptr;
    key_.clear();
}

void PayloadReader::Collector::string(std::string_view piece, bool last)
{
    if (current_ == nullptr) return;
    const bool isWanted = current_->isList ? depth_ == 2 && current_->elements == 0 : depth_ == 1;
    if (isWanted) {
        append(current_->collected, piece, current_->limit + 1);
        current_->isText = last;
    }
    if (last) endScalar();
}

void PayloadReader::Collector::open(bool array)
{
    if (current_ != nullptr) {
        if (depth_ == 1 && !(array && current_->isList))
            endMember();
        else if (depth_ == 2)
            ++current_->elements;
    }
    ++depth_;
}

void PayloadReader::Collector::close()
{
    --depth_;
    if (current_ != nullptr && depth_ == 1) endMember();
}

void PayloadReader::Collector::endScalar()
{
    if (current_ == nullptr) return;
    if (depth_ == 1)
        endMember();
    else if (depth_ == 2)
        ++current_->elements;
}

void PayloadReader::Collector::endMember()
{
    current_->seen = true;
    current_ = nullptr;
    --unseen_;
}

}
