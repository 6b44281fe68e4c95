// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>

namespace chimewell {

/// What the system says about our permission to show banners.
enum class NotificationPermission { notDetermined, denied, authorized, provisional, ephemeral, unknown };

/// A button that every banner of the category carries.
struct NotificationCategory {
    std::string identifier;
    std::string actionIdentifier;
    std::string actionTitle;
};

/// Its texts are safe to show (base/unicode_text.h).
struct NotificationRequest {
    std::string identifier; ///< Unique: banners never replace one another.
    std::string categoryIdentifier;
    std::string title;
    std::string body;
    std::map<std::string, std::string> userInfo; ///< Returned with a click.
};

/// A click on a banner or on its button.
struct NotificationResponse {
    std::string actionIdentifier; ///< The button's identifier, or `defaultNotificationAction`.
    std::map<std::string, std::string> userInfo;
};

/// The user clicked the banner itself.
inline constexpr char defaultNotificationAction[] = "default";

/// The system's banners. Callbacks run on the main thread, possibly later. No call blocks.
class NotificationCenter {
public:
    virtual ~NotificationCenter() = default;
    /// False if this process can't show banners at the moment, whatever the user allows.
    virtual bool isAvailable() const = 0;
    /// Clicks go to `response` from now on. Banners are also shown while our own windows are in front.
    virtual void setResponseHandler(std::function<void(const NotificationResponse&)> response) = 0;
    /// Replaces all categories by this one.
    virtual void setCategory(const NotificationCategory& category) = 0;
    virtual void readPermission(std::function<void(NotificationPermission)> done) = 0;
    /// Asks the user on systems that have such a question. `done` is called in any case.
    virtual void requestPermission(std::function<void()> done) = 0;
    /// Shows the banner at once, without a sound.
    virtual void post(const NotificationRequest& request) = 0;
    /// Removes the banner, also from the system's list of past ones where it can. Does nothing for one that
    /// is gone.
    virtual void withdraw(const std::string& identifier) = 0;
    virtual void openSystemSettings() = 0;
    /// `changed` runs whenever the availability or the permission may have changed.
    virtual void setChangeHandler(std::function<void()> changed) = 0;
};

}
