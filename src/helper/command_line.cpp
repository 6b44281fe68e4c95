// SPDX-License-Identifier: MIT
#include "helper/command_line.h"

#include "values/provider.h"
#include "values/shared_names.h"

namespace chimewell {

std::optional<CommandLine> parseCommandLine(std::span<const char* const> arguments)
{
    if (arguments.empty()) return std::nullopt;
    const std::string_view first = arguments[0];
    const std::string_view second = arguments.size() > 1 ? arguments[1] : std::string_view();

    if (first == codexNotifyCommand)
        return CommandLine{.provider = codexProvider,
                           .event = CanonicalEvent::finished,
                           .payloadIsArgument = true,
                           .payload = second};

    if (first != claudeProvider && first != cursorProvider) return std::nullopt;
    const auto event = eventNamed(second);
    if (!event) return std::nullopt;
    return CommandLine{.provider = first == claudeProvider ? claudeProvider : cursorProvider,
                       .event = *event};
}

}
