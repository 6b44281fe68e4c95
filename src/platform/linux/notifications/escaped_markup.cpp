// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/escaped_markup.h"

namespace chimewell {

std::string escapedMarkup(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else
            result += c;
    }
    return result;
}

}
