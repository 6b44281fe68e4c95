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

/// What is known of other programs that write into a file.
enum class Writers { none, some, unknown };

/// Makes programs that open a file for writing wait in their call until this object goes, on systems and file
/// systems that offer that. Hold it only while the file is read.
class WriteBarrier {
public:
    /// `file` is a regular file that is open for reading alone; it outlives this object.
    explicit WriteBarrier(int file);
    WriteBarrier(const WriteBarrier&) = delete;
    WriteBarrier& operator=(const WriteBarrier&) = delete;
    ~WriteBarrier();

    /// Whether a program has the file open for writing, or waits to. After `none`, what was read since this
    /// object was made is whole and still the file's content.
    Writers writers() const;

private:
    [[maybe_unused]] int file_;
    Writers atFirst_ = Writers::unknown;
};

}
