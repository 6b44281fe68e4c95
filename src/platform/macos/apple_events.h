// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace chimewell {

class NotificationObserver;

/// What the system asks of the application by Apple events. The toolkit registers handlers of its own while
/// the application launches; ours take their place as soon as it has, which is before the event that
/// started us arrives. Made after the toolkit's application object; one at a time, on the main thread.
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

    /// True while the request is handled by which the system ends us at log-out, restart or shut-down. Can
    /// only be asked then: later it looks as if nobody had asked us to quit.
    static bool isSessionEnding();

private:
    void takeOver();

    struct Registration;
    std::unique_ptr<Registration> registration_;
    std::unique_ptr<NotificationObserver> launch_;
};

}
