// SPDX-License-Identifier: MIT
#pragma once

#include "ports/notification_center.h"

#include <string>
#include <vector>

namespace chimewell::test {

/// Shows what was posted; the test plays the user and the system.
class RecordingNotificationCenter : public NotificationCenter {
public:
    bool isAvailable() const override { return available; }
    void setResponseHandler(std::function<void(const NotificationResponse&)> response) override
    {
        respond = std::move(response);
    }
    void setCategory(const NotificationCategory& newCategory) override { category = newCategory; }
    void readPermission(std::function<void(NotificationPermission)> done) override
    {
        if (beforeAnswer) beforeAnswer();
        done(permission);
    }
    void requestPermission(std::function<void()> done) override
    {
        ++requests;
        permission = NotificationPermission::authorized;
        done();
    }
    void post(const NotificationRequest& request) override { posted.push_back(request); }
    void withdraw(const std::string& identifier) override
    {
        std::erase_if(posted, [&](const auto& each) { return each.identifier == identifier; });
    }
    void openSystemSettings() override {}
    void setChangeHandler(std::function<void()> newChanged) override { changed = std::move(newChanged); }

    bool available = true;
    std::function<void()> beforeAnswer; ///< What the system does while it is asked.
    NotificationPermission permission = NotificationPermission::authorized;
    int requests = 0;
    NotificationCategory category;
    std::vector<NotificationRequest> posted; ///< And not withdrawn.
    std::function<void(const NotificationResponse&)> respond;
    std::function<void()> changed;
};

}
