// SPDX-License-Identifier: MIT
#include "values/event_payload.h"

#include <cstddef>
#include <string_view>

namespace chimewell {

std::string EventPayload::sessionKey() const
{
    return session.value_or(noSessionKey);
}

std::optional<std::string> EventPayload::projectLabel() const
{
    if (!cwd) return std::nullopt;
    std::string_view path = *cwd;
    if (path.ends_with('/')) path.remove_suffix(1);
    if (path.empty()) return std::nullopt;

    const std::size_t end = path.find_last_not_of('/');
    if (end == std::string_view::npos) return std::string(path); // nothing but slashes
    const std::size_t slash = path.find_last_of('/', end);
    const std::size_t begin = slash == std::string_view::npos ? 0 : slash + 1;
    return std::string(path.substr(begin, end - begin + 1));
}

}
