// SPDX-License-Identifier: MIT
#include "core/reopen_requests.h"

#include <algorithm>

namespace chimewell {

void ReopenRequests::request()
{
    if (clock_.instant() < explainedUntil_) return;
    waiting_ = timers_.once(settlingTime, [this] {
        waiting_.reset();
        onUserReopen();
    });
}

void ReopenRequests::explain(Cause cause)
{
    waiting_.reset();
    const Instant until = clock_.instant() + (cause == Cause::wake ? afterWake : afterOthers);
    explainedUntil_ = std::max(explainedUntil_, until);
}

}
