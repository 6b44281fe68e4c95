// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace chimewell {

class NotificationObserver;

/// What the system asks of the application by Apple events. The toolkit registers its own handlers while the
/// application launches. Ours replace them right afterwards, before the event that started us arrives. Create
/// it after the toolkit's application object; one at a time, on the main thread.
class AppleEvents {
public:
    struct Handlers {
        /// The raw text of a request to open a URL; absent for a request that carries none.
        std::function<void(const std::optional<std::string>& url)> open;
        /// The user started the application, which runs already.
        std::function<void()> activate;
    };
    explicit AppleEvents(Handlers handlers);
    AppleEvents(const AppleEvents&) = delete;
    AppleEvents& operator=(const AppleEvents&) = delete;
    ~AppleEvents();

    /// True while the system's request to quit for a log-out, restart or shut-down is handled. Call it only
    /// then: later there is no request to look at.
    static bool isSessionEnding();

private:
    void registerHandlers();

    struct Registration;
    std::unique_ptr<Registration> registration_;
    std::unique_ptr<NotificationObserver> launch_;
};

}
