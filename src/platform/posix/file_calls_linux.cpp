// SPDX-License-Identifier: MIT
#include "platform/posix/file_calls.h"

#include <fcntl.h>
#include <linux/limits.h>
#include <linux/magic.h>
#include <stdio.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <optional>
#include <string>
#include <vector>

namespace chimewell {

namespace {

bool rename(int folder, const char* from, const char* to, unsigned int flags)
{
    if (::renameat2(folder, from, folder, to, flags) == 0) return true;
    // EINVAL: the file system does not support the flag. ENOSYS: the kernel does not support the call.
    if (errno == EINVAL || errno == ENOSYS) errno = ENOTSUP;
    return false;
}

/// A network file system grants leases by what its server allows, not by who has the file open.
bool isOnNetwork(int file)
{
    struct statfs system = {};
    if (::fstatfs(file, &system) != 0) return true;
    const auto type = static_cast<unsigned int>(system.f_type);
    return type == NFS_SUPER_MAGIC || type == SMB_SUPER_MAGIC || type == CIFS_SUPER_MAGIC ||
           type == SMB2_SUPER_MAGIC;
}

bool isMissingSupport(int error)
{
    return error == ENOTSUP || error == ENODATA;
}

/// Absent with errno set when they cannot be read.
std::optional<std::vector<std::string>> attributeNames(int file)
{
    std::string list(XATTR_LIST_MAX, '\0');
    const ssize_t size = ::flistxattr(file, list.data(), list.size());
    std::vector<std::string> names;
    if (size < 0) return isMissingSupport(errno) ? std::optional(names) : std::nullopt;
    for (ssize_t start = 0; start < size; start += static_cast<ssize_t>(names.back().size()) + 1)
        names.emplace_back(list.c_str() + start); // each one ends with a NUL
    return names;
}

bool copyAttribute(int from, int to, const char* name)
{
    std::string value(XATTR_SIZE_MAX, '\0');
    const ssize_t size = ::fgetxattr(from, name, value.data(), value.size());
    if (size < 0) return isMissingSupport(errno);
    return ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(size), 0) == 0;
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

bool copyExtendedAttributes(int from, int to)
{
    constexpr char accessList[] = "system.posix_acl_access";
    const auto names = attributeNames(from);
    if (!names) return false;
    // A new file inherits the folder's default list; the original may have had none.
    if (std::ranges::find(*names, accessList) == names->end() && ::fremovexattr(to, accessList) != 0 &&
        !isMissingSupport(errno))
        return false;
    return std::ranges::all_of(*names, [&](const std::string& name) {
        const bool isSystems = name.starts_with("security.") || name.starts_with("trusted.");
        return copyAttribute(from, to, name.c_str()) || isSystems;
    });
}

WriteBarrier::WriteBarrier(int file) : file_(file)
{
    // The kernel signals when another program has to wait for the lease. SIGURG is ignored by default; SIGIO,
    // the default signal, would end the process.
    if (isOnNetwork(file) || ::fcntl(file, F_SETSIG, SIGURG) != 0) return;
    if (::fcntl(file, F_SETLEASE, F_RDLCK) == 0)
        atFirst_ = Writers::none;
    else if (errno == EAGAIN)
        atFirst_ = Writers::some;
    // Other errors: the file is another user's, or the file system has no leases.
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
