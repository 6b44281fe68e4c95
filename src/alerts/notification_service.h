// SPDX-License-Identifier: MIT
#pragma once

#include "base/subscription.h"
#include "base/text.h"
#include "ports/notification_center.h"
#include "ports/random.h"
#include "ports/translator.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace chimewell {

/// Whether the user lets us show banners.
enum class AuthStatus : std::uint8_t { notDetermined, authorized, denied, provisional, unavailable };

/// Shows banners, knows whether the user allows them, and tells when one was clicked.
class NotificationService {
public:
    NotificationService(NotificationCenter& center, Random& random, const Translator& translator)
        : center_(center),
          random_(random),
          translator_(translator)
    {
    }

    /// Runs when the user clicks a banner or its button; set once at start-up.
    std::function<void(const std::optional<std::string>& term, const std::optional<std::string>& cwd)>
        onOpenSession;

    AuthStatus status() const { return status_; }
    [[nodiscard]] Subscription onChange(std::function<void()> callback);

    /// Call once at start-up. Registers the click handler and the category, and reads the permission.
    void configure();
    void refreshStatus();
    /// Asks the user unless that has been done before. Then reads the permission again.
    void requestAuthorization();
    /// The identifier of the banner that was handed to the system; absent when banners are unavailable.
    std::optional<std::string> post(const Phrase& title, const Phrase& body,
                                    const std::optional<std::string>& cwd,
                                    const std::optional<std::string>& term);
    void withdraw(const std::string& banner) { center_.withdraw(banner); }
    void openSystemSettings() { center_.openSystemSettings(); }

private:
    /// Takes the system's answer. Banners may have become unavailable since it was asked.
    void publish(NotificationPermission permission);
    void publish(AuthStatus status);
    void respond(const NotificationResponse& response) const;

    NotificationCenter& center_;
    Random& random_;
    const Translator& translator_;
    AuthStatus status_ = AuthStatus::notDetermined;
    Subscribers subscribers_;
};

}
