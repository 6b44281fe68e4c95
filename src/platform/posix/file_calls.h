// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>
#include <time.h>

namespace chimewell {

// What Linux and macOS offer under different names. Every function that fails sets errno.

/// Renames within an open folder, only if nothing stands at `to`: EEXIST otherwise, ENOTSUP where the file
/// system knows no such renaming.
bool renameToFree(int folder, const char* from, const char* to);
/// The two trade places in one step; ENOTSUP where the file system cannot.
bool exchangeNames(int folder, const char* one, const char* other);
/// Brings an open file's content to the disk itself.
bool flush(int file);
const timespec& modificationTime(const struct stat& status);

}
