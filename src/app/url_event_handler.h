// SPDX-License-Identifier: MIT
#pragma once

#include "events/event_router.h"

#include <optional>
#include <string>

namespace chimewell {

/// Takes the event URLs that the system delivers. Whatever is wrong with one ends silently.
class URLEventHandler {
public:
    explicit URLEventHandler(EventRouter& router) : router_(router) {}

    /// `url` is absent when the request carried no text.
    void handleURLEvent(const std::optional<std::string>& url);
    /// True from the first request of any kind on, valid or not.
    bool didHandleLaunchEvent() const { return didHandleLaunchEvent_; }

private:
    EventRouter& router_;
    bool didHandleLaunchEvent_ = false;
};

}
