// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"
#include "base/subscription.h"
#include "base/text.h"
#include "ports/clock.h"
#include "ports/random.h"
#include "ports/user_locale.h"
#include "values/event_payload.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chimewell {

/// The last few alerts, newest first. In memory only.
class EventHistory {
public:
    struct Entry {
        std::string id; ///< A fresh UUID.
        Date date;      ///< When it was added. The agent's own timestamp is ignored.
        CanonicalEvent event = CanonicalEvent::finished;
        std::optional<std::string> projectLabel;
        std::optional<std::string> message;
        bool isReminder = false;
        std::optional<std::string> cwd;
        std::optional<std::string> term;
        bool operator==(const Entry&) const = default;

        /// For example "Waiting for input — proj (reminder)".
        Phrase displayTitle() const;
        /// For example "14:05 (2 minutes ago)".
        std::string timeText(const UserLocale& locale, Date now) const;
    };

    EventHistory(const Clock& clock, Random& random) : clock_(clock), random_(random) {}

    void add(const EventPayload& payload, bool isReminder);
    void clear();
    const std::vector<Entry>& entries() const { return entries_; }
    [[nodiscard]] Subscription onChange(std::function<void()> callback);

    static constexpr std::size_t capacity = 10;

private:
    const Clock& clock_;
    Random& random_;
    std::vector<Entry> entries_;
    Subscribers subscribers_;
};

}
