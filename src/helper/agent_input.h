// SPDX-License-Identifier: MIT
#pragma once

#include "values/canonical_event.h"
#include "values/event_payload.h"
#include "values/provider.h"
#include "json/json_reader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace chimewell {

/// In the order of `knownProviders`. A `switch` over them that lacks one doesn't compile.
enum class Agent : std::uint8_t { claude, codex, cursor };
static_assert(knownProviders == std::array{claudeProvider, codexProvider, cursorProvider});

/// How the agent's configuration calls the helper.
struct Invocation {
    Agent agent = Agent::claude;
    CanonicalEvent event = CanonicalEvent::finished;
    bool payloadIsArgument = false; ///< Otherwise it comes on standard input.
    std::string_view payload = {};  ///< If it is an argument; empty when that is missing.

    std::string_view provider() const { return knownProviders[static_cast<std::size_t>(agent)]; }
};

/// `arguments`, the program's name left out, are `claude EVENT` or `cursor EVENT` with an event's raw name,
/// or `codex-notify JSON`. Anything else gives nothing; what follows is ignored.
std::optional<Invocation> parseInvocation(std::span<const char* const> arguments);

/// What an agent's payload says about the event. A member that is missing or not a text is absent.
struct Payload {
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> cwd = std::nullopt;
    std::optional<std::string> message = std::nullopt;
    bool isIgnored = false; ///< The user does not need to know of it.
};

/// Picks the few members of the payload that the event needs, and keeps nothing else of it:
/// prompts, answers, tool input and output pass by. Of each value one byte more than `maxValueBytes` is kept:
/// enough to be cut where a character ends. Only members of the outermost object count. Of a repeated one the
/// first counts, as the event may have left before the second comes.
class PayloadReader {
public:
    explicit PayloadReader(const Invocation& invocation);
    PayloadReader(const PayloadReader&) = delete;
    PayloadReader& operator=(const PayloadReader&) = delete;

    /// Takes the payload piece by piece, in the manner of `JSONReader::feed`. A byte-order mark is skipped.
    std::size_t feed(std::string_view window, bool last);
    /// Whether more of the payload could change the result. False too when it turned out not to be JSON or is
    /// nested too deeply.
    bool wantsMore() const;
    /// What is known now.
    Payload payload() const;

private:
    /// What a member is to us; its name is the agent's.
    enum class Role : std::uint8_t { session, cwd, message, kind, prompts, answer };
    static constexpr std::size_t roleCount = 6;

    struct Member {
        std::string_view key = {}; ///< Empty: not wanted.
        bool isList = false;       ///< Of texts; the first one is kept.
        std::size_t limit = maxValueBytes;
        bool seen = false;
        std::string collected = {};
        bool isText = false; ///< `collected` is complete, up to the limit.
        std::size_t elements = 0;

        std::optional<std::string> text() const { return isText ? std::optional(collected) : std::nullopt; }
    };

    /// Follows the text and fills in the members.
    class Collector {
    public:
        void lookFor(Role role, std::string_view key, bool isList = false, std::size_t limit = maxValueBytes);
        bool isComplete() const { return unseen_ == 0; }
        const Member& operator[](Role role) const { return members_[static_cast<std::size_t>(role)]; }

        void beginObject() { open(false); }
        void endObject() { close(); }
        void beginArray() { open(true); }
        void endArray() { close(); }
        void key(std::string_view piece, bool last);
        void string(std::string_view piece, bool last);
        void number(std::string_view, bool last)
        {
            if (last) endScalar();
        }
        void boolean(bool) { endScalar(); }
        void null() { endScalar(); }

    private:
        void open(bool array);
        void close();
        void endScalar();
        void endMember();

        std::array<Member, roleCount> members_{};
        std::size_t unseen_ = 0;
        std::size_t depth_ = 0;
        Member* current_ = nullptr; ///< The wanted member inside whose value we are.
        std::string key_;
    };

    bool isIgnored() const;
    bool isTitleTurn() const;

    Invocation invocation_;
    Collector collector_;
    JSONReader<Collector> reader_{collector_};
    bool atStart_ = true;
};

}
