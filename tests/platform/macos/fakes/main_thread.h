// SPDX-License-Identifier: MIT
#pragma once

namespace chimewell::test::mac {

bool onMainThread();
/// Ends the program unless it runs on the main thread, where AppKit wants to be called.
void requireMainThread(const char* caller);

}
