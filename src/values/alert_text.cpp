// SPDX-License-Identifier: MIT
#include "values/alert_text.h"

#include "base/readable_text.h"
#include "values/texts.h"

namespace chimewell {

Phrase eventTitle(CanonicalEvent event, const std::optional<std::string>& projectLabel)
{
    if (!projectLabel) return displayName(event);
    return {texts::titleAndDetail, {displayName(event), readableLine(*projectLabel)}};
}

Phrase alertTitle(const EventPayload& payload, bool isReminder)
{
    Phrase title = payload.title ? Phrase(readableLine(*payload.title))
                                 : eventTitle(payload.type, payload.projectLabel());
    if (!isReminder) return title;
    return {texts::stillWaiting, {std::move(title)}};
}

Phrase alertBody(CanonicalEvent event, const std::optional<std::string>& message)
{
    return message ? Phrase(*message) : Phrase(defaultBannerBody(event));
}

}
