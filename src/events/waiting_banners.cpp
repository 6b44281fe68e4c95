// SPDX-License-Identifier: MIT
#include "events/waiting_banners.h"

namespace chimewell {

void WaitingBanners::add(const std::string& sessionKey, const std::string& banner)
{
    banners_.push_back({.sessionKey = sessionKey, .identifier = banner});
    if (banners_.size() > capacity) banners_.pop_front();
}

void WaitingBanners::withdraw(const std::string& sessionKey)
{
    std::erase_if(banners_, [&](const Banner& banner) {
        if (banner.sessionKey != sessionKey) return false;
        notifications_.withdraw(banner.identifier);
        return true;
    });
}

}
