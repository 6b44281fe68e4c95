// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

// What the helper asks of the dynamic linker.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the name is the system's
extern "C" int _NSGetExecutablePath(char* path, std::uint32_t* size);
