// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>
#include <time.h>

namespace chimewell {

// Calls on files that differ between Linux and macOS. Every function that fails sets errno.

/// Renames within an open folder unless `to` exists. EEXIST: it does. ENOTSUP: the file system does not
/// support this.
bool renameToFree(int folder, const char* from, const char* to);
/// Swaps two names in one step. ENOTSUP: the file system does not support this.
bool exchangeNames(int folder, const char* one, const char* other);
/// Writes an open file's content to the disk itself.
bool flush(int file);
/// Gives the open file `to` the access control list and the extended attributes of the open file `from`, and
/// no other list. True where the file system has neither. Labels that only the system may set (security.*,
/// trusted.*) are left to the system.
bool copyExtendedAttributes(int from, int to);
const timespec& modificationTime(const struct stat& status);

/// Whether other programs have a file open for writing.
enum class Writers { none, some, unknown };

/// Makes programs that open a file for writing wait until this object is destroyed, on systems and file
/// systems that support it. Hold it only while reading the file.
class WriteBarrier {
public:
    /// `file` is a regular file, open for reading only, and outlives this object.
    explicit WriteBarrier(int file);
    WriteBarrier(const WriteBarrier&) = delete;
    WriteBarrier& operator=(const WriteBarrier&) = delete;
    ~WriteBarrier();

    /// Whether a program has the file open for writing, or waits to open it. `none` means that what was read
    /// since the construction is whole and still the file's content.
    Writers writers() const;

private:
    [[maybe_unused]] int file_;
    Writers atFirst_ = Writers::unknown;
};

}
