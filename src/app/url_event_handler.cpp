// SPDX-License-Identifier: MIT
#include "app/url_event_handler.h"

#include "values/event_url.h"

namespace chimewell {

void URLEventHandler::handleURLEvent(const std::optional<std::string>& url)
{
    didHandleLaunchEvent_ = true;
    if (!url) return;
    if (const auto payload = parseEventUrl(*url)) router_.handle(*payload);
}

}
