// SPDX-License-Identifier: MIT
#pragma once

#include "ui/interface_services.h"

#include <functional>
#include <string>

namespace chimewell {

/// One event's setting, to be shown and changed by the controls of its row.
class EventSettingEditor {
public:
    EventSettingEditor(const InterfaceServices& services, CanonicalEvent event)
        : services_(services),
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
        services_.store.updateEvent(event_, change);
    }
    void preview() const { services_.actions.preview(event_); }

    CanonicalEvent event() const { return event_; }
    const Words& words() const { return services_.words; }
    /// The event's own name in `text`, for those who hear a control and do not see its row.
    QString named(Text text) const { return words()({text, {displayName(event_)}}); }

private:
    const InterfaceServices& services_;
    CanonicalEvent event_;
};

}
