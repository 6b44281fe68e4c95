// SPDX-License-Identifier: MIT
#include "alerts/notification_service.h"

#include "base/unicode_text.h"
#include "values/texts.h"

#include <utility>

namespace chimewell {

namespace {

constexpr char categoryIdentifier[] = "AGENT_EVENT";
constexpr char actionIdentifier[] = "FOCUS_SESSION";
constexpr char cwdKey[] = "cwd";
constexpr char termKey[] = "term";

AuthStatus authStatus(NotificationPermission permission)
{
    switch (permission) {
    case NotificationPermission::denied:
        return AuthStatus::denied;
    case NotificationPermission::authorized:
    case NotificationPermission::ephemeral:
        return AuthStatus::authorized;
    case NotificationPermission::provisional:
        return AuthStatus::provisional;
    case NotificationPermission::notDetermined:
    case NotificationPermission::unknown:
        break;
    }
    return AuthStatus::notDetermined;
}

}

Subscription NotificationService::onChange(std::function<void()> callback)
{
    return subscribers_.add(std::move(callback));
}

void NotificationService::configure()
{
    center_.setResponseHandler([this](const NotificationResponse& response) { respond(response); });
    center_.setCategory({.identifier = categoryIdentifier,
                         .actionIdentifier = actionIdentifier,
                         .actionTitle = translator_.translate(texts::openSession)});
    center_.setChangeHandler([this] { refreshStatus(); });
    refreshStatus();
}

void NotificationService::refreshStatus()
{
    if (!center_.isAvailable()) {
        publish(AuthStatus::unavailable);
        return;
    }
    center_.readPermission([this](NotificationPermission permission) { publish(permission); });
}

void NotificationService::requestAuthorization()
{
    if (!center_.isAvailable()) return;
    center_.readPermission([this](NotificationPermission permission) {
        if (permission == NotificationPermission::notDetermined)
            center_.requestPermission([this] { refreshStatus(); });
        else
            publish(permission);
    });
}

std::optional<std::string> NotificationService::post(const Phrase& title, const Phrase& body,
                                                     const std::optional<std::string>& cwd,
                                                     const std::optional<std::string>& term)
{
    if (!center_.isAvailable()) return std::nullopt;
    NotificationRequest request{.identifier = random_.uuid(),
                                .categoryIdentifier = categoryIdentifier,
                                .title = readableLine(translator_.translate(title)),
                                .body = readableText(translator_.translate(body)),
                                .userInfo = {}};
    if (cwd) request.userInfo.emplace(cwdKey, *cwd);
    if (term) request.userInfo.emplace(termKey, *term);
    center_.post(request);
    return request.identifier;
}

void NotificationService::publish(NotificationPermission permission)
{
    publish(center_.isAvailable() ? authStatus(permission) : AuthStatus::unavailable);
}

void NotificationService::publish(AuthStatus status)
{
    if (std::exchange(status_, status) != status) subscribers_.notify();
}

void NotificationService::respond(const NotificationResponse& response) const
{
    if (response.actionIdentifier != actionIdentifier &&
        response.actionIdentifier != defaultNotificationAction)
        return;
    const auto value = [&](const char* key) -> std::optional<std::string> {
        const auto found = response.userInfo.find(key);
        if (found == response.userInfo.end()) return std::nullopt;
        return found->second;
    };
    if (onOpenSession) onOpenSession(value(termKey), value(cwdKey));
}

}
