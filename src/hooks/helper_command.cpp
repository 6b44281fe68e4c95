// SPDX-License-Identifier: MIT
#include "hooks/helper_command.h"

#include "values/shared_names.h"

namespace chimewell {

namespace {

std::string quoted(const std::string& helper)
{
    std::string word = "\"";
    for (const char c : helper) {
        if (c == '"' || c == '$' || c == '`' || c == '\\') word += '\\';
        word += c;
    }
    return word + '"';
}

}

std::string helperCommand(const std::string& helper, std::string_view provider, std::string_view event)
{
    return quoted(helper) + ' ' + std::string(provider) + ' ' + std::string(event);
}

bool runsHelper(std::string_view command, const std::string& helper)
{
    const std::string word = ' ' + helper + ' ';
    return command.contains(quoted(helper)) || (' ' + std::string(command) + ' ').contains(word);
}

bool namesOurHelper(std::string_view command)
{
    return command.contains(helperName);
}

}
