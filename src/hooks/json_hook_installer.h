// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_installer.h"
#include "values/canonical_event.h"
#include "json/json_value.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// For agents whose file is JSON: {"hooks": {EVENT: [ENTRY, …], …}} among other members. Where a key is
/// repeated, agents read the last member.
class JSONHookInstaller : public HookInstaller {
public:
    /// An event of the agent, and the one that our helper reports for it.
    struct Event {
        // Without a default: a table with too few rows does not compile.
        constexpr Event(std::string_view agents, CanonicalEvent ours) : agentName(agents), reported(ours) {}

        std::string_view agentName;
        CanonicalEvent reported;
    };
    struct Format {
        std::span<const Event> events; ///< In the order in which they are written.
        bool hasGroups = false;        ///< An entry is a matcher group with "hooks" in it, not a hook itself.
        bool keepsEmptyHooks = false;  ///< A "hooks" member that lost its last event stays.
        std::string_view version = {}; ///< Added to a file without one, unless empty.
    };

protected:
    JSONHookInstaller(Collaborators with, Description description, Format format);

private:
    Result<Content> withHooks(const Content& content, const std::string& helper) const final;
    Result<Content> withoutHooks(const std::string& content) const final;
    Result<Findings> find(const std::string& content, const std::string& helper) const final;

    Result<JSONValue> parse(const std::string& content) const;
    static Result<Content> serialise(const JSONValue& settings);
    JSONValue entry(const std::string& command) const;
    std::vector<std::string> ourCommands(const JSONValue& entry) const;
    bool isOurs(const JSONValue& entry) const { return !ourCommands(entry).empty(); }
    std::vector<JSONValue> othersIn(const JSONValue& array) const;
    std::optional<JSONValue> withoutOurs(const JSONValue& hooks) const;

    Format format_;
};

/// Claude Code: matcher groups in ~/.claude/settings.json.
class ClaudeHookInstaller final : public JSONHookInstaller {
public:
    explicit ClaudeHookInstaller(Collaborators with);
};

/// Cursor: entries in ~/.cursor/hooks.json.
class CursorHookInstaller final : public JSONHookInstaller {
public:
    explicit CursorHookInstaller(Collaborators with);
};

}
