// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace chimewell {

class NotificationObserver;

/// What the system tells and asks the application: by Apple events, and by notifications of its launch and of
/// the Mac's waking. The toolkit registers its own handlers of Apple events while the application launches.
/// Ours replace them right afterwards, before the event that started us arrives. Create it after the
/// toolkit's application object; one at a time, on the main thread.
class AppleEvents {
public:
    struct Handlers {
        /// The application has launched. A URL that started it may have been opened before.
        std::function<void()> didLaunch;
        /// The raw text of a request to open a URL; absent for a request that carries none.
        std::function<void(const std::optional<std::string>& url)> open;
        /// The application, which runs already, was started again, by the user or by the system.
        std::function<void()> reopen;
        /// Exit. `endsSession` says that the user logs out, restarts or shuts down. The request is granted
        /// when this returns, so the application must exit soon: a refusal would interrupt the log-out.
        std::function<void(bool endsSession)> quit;
        std::function<void()> didWake;
    };
    explicit AppleEvents(Handlers handlers);
    AppleEvents(const AppleEvents&) = delete;
    AppleEvents& operator=(const AppleEvents&) = delete;
    ~AppleEvents();

private:
    void registerHandlers();

    struct Registration;
    std::unique_ptr<Registration> registration_;
    std::unique_ptr<NotificationObserver> launching_, launched_, wake_;
};

}
