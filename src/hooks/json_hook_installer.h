// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_installer.h"
#include "hooks/json_hooks.h"
#include "json/json_value.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell {

/// What the installers of agents with a JSON file share: parsing, editing the "hooks" and writing.
class JSONHookInstaller : public HookInstaller {
public:
    /// An event of the agent, and what our helper is told of it.
    struct Event {
        std::string_view agentName;
        std::string_view rawName;
        bool endsReminders = false;
    };
    struct Format {
        std::span<const Event> events; ///< In the order in which they are written.
        EmptiedHooks emptiedHooks = EmptiedHooks::go;
    };

protected:
    JSONHookInstaller(Collaborators with, Description description, Format format);

    /// The entry that runs `command`.
    virtual JSONValue entry(const std::string& command) const = 0;
    /// The commands that an entry runs, whoever's it is.
    virtual std::vector<std::string> commands(const JSONValue& entry) const = 0;
    /// Members that the file has to have besides the hooks.
    virtual JSONValue completed(JSONValue settings) const { return settings; }

private:
    Result<std::string> withHooks(const Content& content, const std::string& helper) const final;
    Result<Content> withoutHooks(const std::string& content) const final;
    Result<Findings> find(const std::string& content, const std::string& helper) const final;

    Result<JSONValue> parse(const std::string& content) const;
    Result<std::string> serialise(const JSONValue& settings) const;
    bool isOurs(const JSONValue& entry) const;
    bool callsOtherHelper(const JSONValue& entry, const std::string& helper) const;

    Format format_;
};

}
