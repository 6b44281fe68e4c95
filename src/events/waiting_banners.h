// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/notification_service.h"

#include <cstddef>
#include <deque>
#include <string>

namespace chimewell {

/// The banners that say that a session waits, reminders among them. They go away when it no longer waits.
class WaitingBanners {
public:
    explicit WaitingBanners(NotificationService& notifications) : notifications_(notifications) {}

    /// `banner` is its identifier. Beyond `capacity` the banner added first stays until the user closes it.
    void add(const std::string& sessionKey, const std::string& banner);
    void withdraw(const std::string& sessionKey);

    static constexpr std::size_t capacity = 100;

private:
    struct Banner {
        std::string sessionKey;
        std::string identifier;
    };

    NotificationService& notifications_;
    std::deque<Banner> banners_; ///< Oldest first.
};

}
