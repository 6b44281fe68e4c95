// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace chimewell {

/// Whether the user lets us show banners.
enum class AuthStatus : std::uint8_t { notDetermined, authorized, denied, provisional, unavailable };

}
