// SPDX-License-Identifier: MIT
#include "events/event_history.h"

#include "values/event_payload.h"
#include "values/texts.h"

#include <utility>

namespace chimewell {

Phrase EventHistory::Entry::displayTitle() const
{
    Phrase title = eventTitle(event, projectLabel);
    if (!isReminder) return title;
    return {texts::reminderTitle, {std::move(title)}};
}

std::string EventHistory::Entry::timeText(const UserLocale& locale, Date now) const
{
    return locale.shortTime(date) + " (" + locale.relativeTime(date, now) + ")";
}

void EventHistory::add(const EventPayload& payload, bool isReminder)
{
    entries_.insert(entries_.begin(), {.id = random_.uuid(),
                                       .date = clock_.now(),
                                       .event = payload.type,
                                       .projectLabel = payload.projectLabel(),
                                       .message = payload.message,
                                       .isReminder = isReminder,
                                       .cwd = payload.cwd,
                                       .term = payload.term});
    if (entries_.size() > capacity) entries_.resize(capacity);
    subscribers_.notify();
}

void EventHistory::clear()
{
    entries_.clear();
    subscribers_.notify();
}

Subscription EventHistory::onChange(std::function<void()> callback)
{
    return subscribers_.add(std::move(callback));
}

}
