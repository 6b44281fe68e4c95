// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace chimewell {

/// Each `%` followed by two hexadecimal digits becomes that byte (RFC 3986, section 2.1); any other
/// `%`, and `+`, stay themselves. The result need not be UTF-8.
std::string percentDecoded(std::string_view text);

}
