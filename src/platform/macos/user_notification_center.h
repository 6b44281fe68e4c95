// SPDX-License-Identifier: MIT
#pragma once

#include "ports/notification_center.h"

#include <memory>
#include <string>

namespace chimewell {

/// Banners by UNUserNotificationCenter, which exists only for a program in an application bundle. Callbacks
/// run on the main thread; those that are still due when this object is destroyed are dropped.
class UserNotificationCenter final : public NotificationCenter {
public:
    UserNotificationCenter();
    ~UserNotificationCenter() override;

    bool isAvailable() const override;
    void setResponseHandler(std::function<void(const NotificationResponse&)> response) override;
    void setCategory(const NotificationCategory& category) override;
    void readPermission(std::function<void(NotificationPermission)> done) override;
    void requestPermission(std::function<void()> done) override;
    void post(const NotificationRequest& request) override;
    void withdraw(const std::string& identifier) override;
    void openSystemSettings() override;
    /// Runs when the application becomes active: the user may come back from System Settings.
    void setChangeHandler(std::function<void()> changed) override;

private:
    struct State;
    std::shared_ptr<State> state_;
};

}
