// SPDX-License-Identifier: MIT
#include "core/app_delegate.h"

#include "base/date_time.h"
#include "values/event_payload.h"

namespace chimewell {

void DormantMarker::write()
{
    static_cast<void>(files_.createFolders(folder_));
    static_cast<void>(files_.replace(file(), iso8601(clock_.now())));
}

void DormantMarker::clear()
{
    static_cast<void>(files_.remove(file()));
}

void URLEventHandler::handleURLEvent(const std::optional<std::string>& url)
{
    didHandleLaunchEvent_ = true;
    reopens_.explain(ReopenRequests::Cause::url);
    if (!url) return;
    if (const auto payload = parseEventUrl(*url)) router_.handle(*payload);
}

void AppDelegate::applicationDidFinishLaunching()
{
    with_.activation.setPolicy(ActivationPolicy::accessory);
    launchCheck_ = with_.timers.once(launchCheckDelay, [this] {
        if (!with_.urls.didHandleLaunchEvent()) with_.marker.clear();
        launchCheck_.reset();
    });
    with_.notifications.configure();
}

void AppDelegate::applicationWillTerminate(QuitReason reason)
{
    if (reason == QuitReason::user) with_.marker.write();
}

}
