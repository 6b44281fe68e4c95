// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace chimewell {

/// `text` as it is written where a notification server understands markup.
std::string escapedMarkup(std::string_view text);

}
