// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace chimewell::test::mac {

struct BannerAction {
    std::string identifier;
    std::string title;
    unsigned long options = 0;
    bool operator==(const BannerAction&) const = default;
};

struct BannerCategory {
    std::string identifier;
    std::vector<BannerAction> actions;
    unsigned long intents = 0;
    unsigned long options = 0;
    bool operator==(const BannerCategory&) const = default;
};

struct PostedBanner {
    std::string identifier;
    std::string category;
    std::string title;
    std::string body;
    std::map<std::string, std::string> userInfo;
    bool hasTrigger = false;
    bool hasHandler = false;
    bool operator==(const PostedBanner&) const = default;
};

/// What the user did with a banner.
struct BannerResponse {
    std::string action;
    std::map<std::string, std::string> userInfo;
    bool foreignUserInfo = false; ///< It also holds a key and a value that are no texts.
};

/// The identifier that stands for a click on the banner itself.
std::string defaultActionIdentifier();

/// The system's banners. All its answers come on another thread.
struct Banners {
    long status = 0;                  ///< A value of UNAuthorizationStatus.
    long answer = 2;                  ///< What `status` is once the user was asked.
    std::vector<unsigned long> asked; ///< The options of each request for permission.
    std::vector<BannerCategory> categories;
    std::vector<PostedBanner> posted;

    bool hasDelegate() const;
    /// Gives the answers that are owed, each before the call returns.
    void giveAnswers() const;
    /// Asks the delegate how to show a banner while the application is in front; nothing if it does not say.
    std::optional<unsigned long> present() const;
    /// Tells the delegate of a response. How often it then said that it was done.
    int respond(const BannerResponse& response) const;
};

Banners& banners();

}
