// SPDX-License-Identifier: MIT
#include "presentation/event_looks.h"

#include "values/sound_option.h"

namespace chimewell {

namespace {

struct Look {
    std::string_view icon;
    Tone tone;
};

Look lookOf(CanonicalEvent event)
{
    switch (event) {
    case CanonicalEvent::finished:
    case CanonicalEvent::subagentFinished:
        return {"checkmark.circle", Tone::green};
    case CanonicalEvent::waitingInput:
        return {"hourglass", Tone::orange};
    case CanonicalEvent::error:
        return {"exclamationmark.triangle", Tone::red};
    case CanonicalEvent::toolUse:
    case CanonicalEvent::longRunningStart:
    case CanonicalEvent::sessionStart:
    case CanonicalEvent::userActed:
        break;
    }
    return {"bell", Tone::secondary};
}

}

std::string_view iconName(CanonicalEvent event)
{
    return lookOf(event).icon;
}

Tone iconTone(CanonicalEvent event)
{
    return lookOf(event).tone;
}

Text description(CanonicalEvent event)
{
    return defaultBannerBody(event);
}

bool canPreview(const EventSetting& setting)
{
    return setting.soundId != silentSoundId || setting.speak;
}

}
