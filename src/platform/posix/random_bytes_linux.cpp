// SPDX-License-Identifier: MIT
#include "platform/posix/random_bytes.h"

#include <sys/random.h>

#include <algorithm>
#include <cerrno>
#include <random>

namespace chimewell {

void fillWithRandom(std::span<std::byte> bytes)
{
    // So few bytes come whole or not at all.
    while (::getrandom(bytes.data(), bytes.size(), 0) < 0) {
        if (errno == EINTR) continue;
        // Every kernel that we run on has this call, but a sandbox may forbid it.
        std::random_device device;
        std::ranges::generate(bytes, [&] { return static_cast<std::byte>(device()); });
        return;
    }
}

}
