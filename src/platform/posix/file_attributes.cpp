// SPDX-License-Identifier: MIT
#include "platform/posix/file_attributes.h"

#include "platform/posix/extended_attributes.h"

#include <sys/stat.h>
#include <unistd.h>

namespace chimewell {

bool copyFileAttributes(int from, int to)
{
    struct stat original = {};
    struct stat copy = {};
    if (::fstat(from, &original) != 0 || ::fstat(to, &copy) != 0) return false;
    const bool sameOwner = original.st_uid == copy.st_uid && original.st_gid == copy.st_gid;
    if (!sameOwner && ::fchown(to, original.st_uid, original.st_gid) != 0) return false;
    // The mode comes last: a change of the owner drops bits of it, and an access control list rewrites it.
    return copyExtendedAttributes(from, to) && ::fchmod(to, original.st_mode & 07777) == 0;
}

}
