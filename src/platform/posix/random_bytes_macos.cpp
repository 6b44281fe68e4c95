// SPDX-License-Identifier: MIT
#include "platform/posix/random_bytes.h"

#include <stdlib.h>

namespace chimewell {

void fillWithRandom(std::span<std::byte> bytes)
{
    ::arc4random_buf(bytes.data(), bytes.size()); // which never fails
}

}
