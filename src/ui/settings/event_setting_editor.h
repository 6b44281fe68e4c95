// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/windows.h"
#include "ui/words.h"

#include <functional>
#include <string>

namespace chimewell {

/// One event's setting, to be shown and changed by the controls of its row.
class EventSettingEditor {
public:
    EventSettingEditor(Services& services, CanonicalEvent event)
        : services_(services),
          words_(services.ports.translator),
          event_(event)
    {
    }

    EventSetting setting() const
    {
        const EventSetting* stored = services_.store.settings().setting(event_);
        return stored ? *stored : EventSetting::defaultSetting(event_);
    }
    void change(const std::function<void(EventSetting&)>& change) const
    {
        services_.actions.changeEvent(event_, change);
    }
    void preview() const { services_.actions.preview(event_); }

    CanonicalEvent event() const { return event_; }
    const Words& words() const { return words_; }
    /// The event's own name in `text`, for those who hear a control and do not see its row.
    QString named(Text text) const { return words()({text, {displayName(event_)}}); }

private:
    Services& services_;
    const Words words_;
    CanonicalEvent event_;
};

}
