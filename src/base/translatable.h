// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace chimewell {

/// Marks a text that the interface may show in another language; the text stays what it is. The translation
/// tools look for the name of this function (cmake/translations.cmake).
constexpr std::string_view translatable(std::string_view text)
{
    return text;
}

}
