// SPDX-License-Identifier: MIT
#include "platform/posix/extended_attributes.h"

#include <copyfile.h>
#include <sys/acl.h>
#include <sys/types.h>

#include <cerrno>
#include <memory>
#include <type_traits>

namespace chimewell {

namespace {

struct FreeList {
    void operator()(acl_t list) const
    {
        const int error = errno; // the caller still wants to know why it failed
        ::acl_free(list);
        errno = error;
    }
};
using AccessList = std::unique_ptr<std::remove_pointer_t<acl_t>, FreeList>;

/// copyfile would leave the copy what its folder hands down, which the original may have been without.
bool copyAccessList(int from, int to)
{
    AccessList list(::acl_get_fd_np(from, ACL_TYPE_EXTENDED));
    if (!list && errno == ENOENT) list.reset(::acl_init(0));
    if (!list) return errno == ENOTSUP;
    return ::acl_set_fd_np(to, list.get(), ACL_TYPE_EXTENDED) == 0 || errno == ENOTSUP;
}

}

bool copyExtendedAttributes(int from, int to)
{
    if (::fcopyfile(from, to, nullptr, COPYFILE_XATTR) != 0 && errno != ENOTSUP) return false;
    return copyAccessList(from, to);
}

}
