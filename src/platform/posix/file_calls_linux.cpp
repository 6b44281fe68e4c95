// SPDX-License-Identifier: MIT
#include "platform/posix/file_calls.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>

namespace chimewell {

namespace {

bool rename(int folder, const char* from, const char* to, unsigned int flags)
{
    if (::renameat2(folder, from, folder, to, flags) == 0) return true;
    // A file system that does not know the flag says the one, a kernel that does not know the call the other.
    if (errno == EINVAL || errno == ENOSYS) errno = ENOTSUP;
    return false;
}

}

bool renameToFree(int folder, const char* from, const char* to)
{
    return rename(folder, from, to, RENAME_NOREPLACE);
}

bool exchangeNames(int folder, const char* one, const char* other)
{
    return rename(folder, one, other, RENAME_EXCHANGE);
}

bool flush(int file)
{
    while (::fsync(file) != 0)
        if (errno != EINTR) return false;
    return true;
}

const timespec& modificationTime(const struct stat& status)
{
    return status.st_mtim;
}

}
