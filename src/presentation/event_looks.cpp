// SPDX-License-Identifier: MIT
#include "presentation/event_looks.h"

#include "values/sound_option.h"

namespace chimewell {

std::string_view iconName(CanonicalEvent event)
{
    switch (event) {
    case CanonicalEvent::finished:
    case CanonicalEvent::subagentFinished:
        return "checkmark.circle";
    case CanonicalEvent::waitingInput:
        return "hourglass";
    case CanonicalEvent::error:
        return "exclamationmark.triangle";
    case CanonicalEvent::toolUse:
    case CanonicalEvent::longRunningStart:
    case CanonicalEvent::sessionStart:
    case CanonicalEvent::userActed:
        break;
    }
    return "bell";
}

Tone iconTone(CanonicalEvent event)
{
    switch (event) {
    case CanonicalEvent::finished:
    case CanonicalEvent::subagentFinished:
        return Tone::green;
    case CanonicalEvent::waitingInput:
        return Tone::orange;
    case CanonicalEvent::error:
        return Tone::red;
    case CanonicalEvent::toolUse:
    case CanonicalEvent::longRunningStart:
    case CanonicalEvent::sessionStart:
    case CanonicalEvent::userActed:
        break;
    }
    return Tone::secondary;
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
