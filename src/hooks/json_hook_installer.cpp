// SPDX-License-Identifier: MIT
#include "hooks/json_hook_installer.h"

#include "base/utf8.h"
#include "hooks/command_line.h"
#include "values/texts.h"
#include "json/json_parser.h"
#include "json/json_writer.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace chimewell {

namespace {

/// Files beyond this are not read, so none is written either: indentation could make a small file of deep
/// nesting huge.
constexpr std::uint64_t maxFileSize = std::uint64_t{64} << 20;

HookInstallerError notSerialised()
{
    return {HookInstallerError::Kind::ioError, texts::couldNotSerialize};
}

}

JSONHookInstaller::JSONHookInstaller(Collaborators with, Description description, Format format)
    : HookInstaller(with, description),
      format_(format)
{
}

HookInstaller::Result<std::string> JSONHookInstaller::withHooks(const Content& content,
                                                                const std::string& helper) const
{
    const auto settings = content ? parse(*content) : JSONValue::object({});
    if (!settings) return std::unexpected(settings.error());
    if (!isValidUtf8(helper)) return std::unexpected(notSerialised());
    std::vector<WantedHook> wanted;
    for (const Event& event : format_.events)
        wanted.push_back({event.agentName, entry(hookCommandLine(helper, providerId(), event.rawName))});
    const auto edited =
        withOurHooks(completed(*settings), wanted, [this](const JSONValue& entry) { return isOurs(entry); });
    if (!edited) return std::unexpected(unparseable());
    return serialise(*edited);
}

HookInstaller::Result<HookInstaller::Content>
JSONHookInstaller::withoutHooks(const std::string& content) const
{
    const auto settings = parse(content);
    if (!settings) return std::unexpected(settings.error());
    const auto edited = withoutOurHooks(
        *settings, [this](const JSONValue& entry) { return isOurs(entry); }, format_.emptiedHooks);
    if (!edited) return Content();
    auto text = serialise(*edited);
    if (!text) return std::unexpected(text.error());
    return Content(std::move(*text));
}

HookInstaller::Result<HookInstaller::Findings> JSONHookInstaller::find(const std::string& content,
                                                                       const std::string& helper) const
{
    const auto settings = parse(content);
    if (!settings) return std::unexpected(settings.error());
    const IsOurHook isOurHook = [this](const JSONValue& entry) { return isOurs(entry); };
    Findings found;
    for (const FoundHook& hook : findOurHooks(*settings, isOurHook))
        found.entries.push_back(quoteJSON(hook.event) + ": " +
                                writeJSON(JSONValue::array(std::array{hook.entry})));
    for (const Event& event : format_.events) {
        const auto present = ourHooksOf(*settings, event.agentName, isOurHook);
        if (event.endsReminders && present.empty()) found.lackReminderHooks = true;
        for (const JSONValue& entry : present)
            if (callsOtherHelper(entry, helper)) found.callOtherHelper = true;
    }
    return found;
}

HookInstaller::Result<JSONValue> JSONHookInstaller::parse(const std::string& content) const
{
    auto parsed = parseJSON(content);
    if (!parsed || !parsed->is(JSONValue::Kind::object)) return std::unexpected(unparseable());
    return *parsed;
}

HookInstaller::Result<std::string> JSONHookInstaller::serialise(const JSONValue& settings) const
{
    if (writtenSize(settings) >= maxFileSize) return std::unexpected(notSerialised());
    return writeJSON(settings) + "\n";
}

bool JSONHookInstaller::isOurs(const JSONValue& entry) const
{
    return std::ranges::any_of(commands(entry), namesOurHelper);
}

bool JSONHookInstaller::callsOtherHelper(const JSONValue& entry, const std::string& helper) const
{
    return std::ranges::any_of(commands(entry), [&](const std::string& command) {
        return namesOurHelper(command) && !runsHelper(command, helper);
    });
}

}
