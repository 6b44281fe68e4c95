// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/file_uri.h"

#include <string_view>

namespace chimewell {

std::string fileUri(const std::filesystem::path& path)
{
    // RFC 3986, section 2.3, and the separator.
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string uri = "file://";
    for (const char character : path.native()) {
        if (plain.contains(character)) {
            uri += character;
            continue;
        }
        const auto byte = static_cast<unsigned char>(character);
        uri += '%';
        uri += digits[byte >> 4];
        uri += digits[byte & 15];
    }
    return uri;
}

}
