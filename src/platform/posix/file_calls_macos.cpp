// SPDX-License-Identifier: MIT
#include "platform/posix/file_calls.h"

#include <copyfile.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/acl.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <type_traits>

namespace chimewell {

namespace {

struct FreeList {
    void operator()(acl_t list) const
    {
        const int error = errno; // acl_free may change it
        ::acl_free(list);
        errno = error;
    }
};
using AccessList = std::unique_ptr<std::remove_pointer_t<acl_t>, FreeList>;

/// copyfile would keep the entries that the copy inherited from its folder.
bool copyAccessList(int from, int to)
{
    AccessList list(::acl_get_fd_np(from, ACL_TYPE_EXTENDED));
    if (!list && errno == ENOENT) list.reset(::acl_init(0));
    if (!list) return errno == ENOTSUP;
    return ::acl_set_fd_np(to, list.get(), ACL_TYPE_EXTENDED) == 0 || errno == ENOTSUP;
}

}

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
    // After fsync alone the content may still be in the drive's volatile cache. Not every file system
    // supports F_FULLFSYNC.
    while (::fcntl(file, F_FULLFSYNC) != 0 && ::fsync(file) != 0)
        if (errno != EINTR) return false;
    return true;
}

const timespec& modificationTime(const struct stat& status)
{
    return status.st_mtimespec;
}

bool copyExtendedAttributes(int from, int to)
{
    if (::fcopyfile(from, to, nullptr, COPYFILE_XATTR) != 0 && errno != ENOTSUP) return false;
    return copyAccessList(from, to);
}

// The system has no leases.

WriteBarrier::WriteBarrier(int file) : file_(file) {}

WriteBarrier::~WriteBarrier() = default;

Writers WriteBarrier::writers() const
{
    return atFirst_;
}

}
