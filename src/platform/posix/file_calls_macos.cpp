// SPDX-License-Identifier: MIT
#include "platform/posix/file_calls.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>

namespace chimewell {

bool renameToFree(int folder, const char* from, const char* to)
{
    return ::renameatx_np(folder, from, folder, to, RENAME_EXCL) == 0;
}

bool exchangeNames(int folder, const char* one, const char* other)
{
    return ::renameatx_np(folder, one, folder, other, RENAME_SWAP) == 0;
}

bool flush(int file)
{
    // fsync alone hands the content to the disk, which may keep it in a memory that a power cut empties. Not
    // every file system can ask for more.
    while (::fcntl(file, F_FULLFSYNC) != 0 && ::fsync(file) != 0)
        if (errno != EINTR) return false;
    return true;
}

const timespec& modificationTime(const struct stat& status)
{
    return status.st_mtimespec;
}

// The system has no leases.

WriteBarrier::WriteBarrier(int file) : file_(file) {}

WriteBarrier::~WriteBarrier() = default;

Writers WriteBarrier::writers() const
{
    return atFirst_;
}

}
