// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/file_uri.h"

#include "base/percent.h"

namespace chimewell {

std::string fileUri(const std::filesystem::path& path)
{
    std::string uri = "file://";
    appendPercentEncoded(uri, path.native(), "/");
    return uri;
}

}
