// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace chimewell {

/// Runs `task` on the main thread, always later than this call. May be called on any thread.
void postToMain(std::function<void()> task);

}
