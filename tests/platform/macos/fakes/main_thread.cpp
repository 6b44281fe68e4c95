// SPDX-License-Identifier: MIT
#include "fakes/main_thread.h"

#include <cstdio>
#include <cstdlib>
#include <thread>

namespace chimewell::test::mac {

namespace {

const std::thread::id mainThread = std::this_thread::get_id();

}

bool onMainThread()
{
    return std::this_thread::get_id() == mainThread;
}

void requireMainThread(const char* caller)
{
    if (onMainThread()) return;
    std::fprintf(stderr, "%s called away from the main thread\n", caller);
    std::abort();
}

}
