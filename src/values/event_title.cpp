// SPDX-License-Identifier: MIT
#include "values/event_title.h"

namespace chimewell {

std::string eventTitle(CanonicalEvent event, const std::optional<std::string>& projectLabel)
{
    std::string title(displayName(event));
    if (projectLabel) title += " — " + *projectLabel;
    return title;
}

}
