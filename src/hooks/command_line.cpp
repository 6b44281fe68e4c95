// SPDX-License-Identifier: MIT
#include "hooks/command_line.h"

namespace chimewell {

std::string hookCommandLine(const std::string& helper, std::string_view provider, std::string_view event)
{
    std::string line = "\"";
    for (const char c : helper) {
        if (c == '"' || c == '$' || c == '`' || c == '\\') line += '\\';
        line += c;
    }
    line += "\" ";
    line += provider;
    line += ' ';
    line += event;
    return line;
}

bool namesOurHelper(std::string_view command)
{
    return command.contains("chimewell-hook");
}

}
