// SPDX-License-Identifier: MIT
#include "platform/posix/extended_attributes.h"

#include <sys/xattr.h>

#include <cerrno>
#include <optional>
#include <string>
#include <string_view>

namespace chimewell {

namespace {

bool isMissingSupport(int error)
{
    return error == ENOTSUP || error == ENODATA;
}

/// The names end with a NUL each; nothing with errno set when they cannot be read.
std::optional<std::string> attributeNames(int file)
{
    std::string names;
    while (true) {
        const ssize_t size = ::flistxattr(file, nullptr, 0);
        if (size < 0) return isMissingSupport(errno) ? std::optional(std::string()) : std::nullopt;
        names.resize(static_cast<std::size_t>(size));
        const ssize_t read = ::flistxattr(file, names.data(), names.size());
        if (read >= 0) {
            names.resize(static_cast<std::size_t>(read));
            return names;
        }
        if (errno != ERANGE) return std::nullopt; // ERANGE: somebody added one in between
    }
}

bool copyAttribute(int from, int to, const char* name)
{
    std::string value;
    while (true) {
        const ssize_t size = ::fgetxattr(from, name, nullptr, 0);
        if (size < 0) return isMissingSupport(errno);
        value.resize(static_cast<std::size_t>(size));
        const ssize_t read = ::fgetxattr(from, name, value.data(), value.size());
        if (read >= 0) return ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(read), 0) == 0;
        if (errno != ERANGE) return isMissingSupport(errno);
    }
}

constexpr char accessList[] = "system.posix_acl_access";

/// `names` end with a NUL each.
bool hasName(const std::string& names, std::string_view wanted)
{
    for (std::size_t start = 0; start < names.size();) {
        const std::string_view name(names.c_str() + start);
        if (name == wanted) return true;
        start += name.size() + 1;
    }
    return false;
}

}

bool copyExtendedAttributes(int from, int to)
{
    const std::optional<std::string> names = attributeNames(from);
    if (!names) return false;
    // A new file takes the folder's default list for its own; the original may have been without one.
    if (!hasName(*names, accessList) && ::fremovexattr(to, accessList) != 0 && !isMissingSupport(errno))
        return false;
    for (std::size_t start = 0; start < names->size();) {
        const char* name = names->c_str() + start; // each name is terminated inside the list
        const std::string_view text(name);
        start += text.size() + 1;
        const bool systemsOwn = text.starts_with("security.") || text.starts_with("trusted.");
        if (!copyAttribute(from, to, name) && !systemsOwn) return false;
    }
    return true;
}

}
