// SPDX-License-Identifier: MIT
#include "platform/posix/file_calls.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <stdio.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace chimewell {

namespace {

bool rename(int folder, const char* from, const char* to, unsigned int flags)
{
    if (::renameat2(folder, from, folder, to, flags) == 0) return true;
    // A file system that does not know the flag says the one, a kernel that does not know the call the other.
    if (errno == EINVAL || errno == ENOSYS) errno = ENOTSUP;
    return false;
}

/// A network's file system grants a lease by what its server allowed, not by who has the file open.
bool isOnNetwork(int file)
{
    struct statfs system = {};
    if (::fstatfs(file, &system) != 0) return true;
    switch (static_cast<unsigned int>(system.f_type)) {
    case NFS_SUPER_MAGIC:
    case SMB_SUPER_MAGIC:
    case CIFS_SUPER_MAGIC:
    case SMB2_SUPER_MAGIC:
        return true;
    default:
        return false;
    }
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

WriteBarrier::WriteBarrier(int file) : file_(file)
{
    // Who has to wait is announced to us by a signal: by one that does nothing unless a program asks for it,
    // instead of SIGIO, which would end the process.
    if (isOnNetwork(file) || ::fcntl(file, F_SETSIG, SIGURG) != 0) return;
    if (::fcntl(file, F_SETLEASE, F_RDLCK) == 0)
        atFirst_ = Writers::none;
    else if (errno == EAGAIN)
        atFirst_ = Writers::some;
    // Other errors: somebody else's file, or a file system without leases.
}

WriteBarrier::~WriteBarrier()
{
    if (atFirst_ == Writers::none) ::fcntl(file_, F_SETLEASE, F_UNLCK);
}

Writers WriteBarrier::writers() const
{
    if (atFirst_ != Writers::none) return atFirst_;
    return ::fcntl(file_, F_GETLEASE) == F_RDLCK ? Writers::none : Writers::some;
}

}
