// SPDX-License-Identifier: MIT
#include "helper/deadline.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>

namespace chimewell {

bool waitFor(int descriptor, short events, Deadline deadline)
{
    for (;;) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        pollfd entry{.fd = descriptor, .events = events, .revents = 0};
        const int ready = poll(&entry, 1, static_cast<int>(std::max<long>(0, left.count())));
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR) return false;
    }
}

}
