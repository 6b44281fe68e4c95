// SPDX-License-Identifier: MIT
#include "app/dormant_marker.h"

#include "base/iso8601.h"

namespace chimewell {

void DormantMarker::write()
{
    static_cast<void>(files_.createFolders(folder_));
    static_cast<void>(files_.replace(file(), iso8601(clock_.now())));
}

void DormantMarker::clear()
{
    static_cast<void>(files_.remove(file()));
}

}
