// SPDX-License-Identifier: MIT
#pragma once

#include "base/date_time.h"

#include <cstddef>
#include <iterator>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace chimewell {

/// When each of many keys was last seen. Times never go back, so that forgetting the old ones costs
/// no more than their number; beyond `capacity` the key seen longest ago is forgotten.
class LastSeen {
public:
    explicit LastSeen(std::size_t capacity) : capacity_(capacity) {}
    LastSeen(const LastSeen&) = delete;
    LastSeen& operator=(const LastSeen&) = delete;

    std::optional<Instant> find(const std::string& key) const
    {
        const auto found = byKey_.find(key);
        return found == byKey_.end() ? std::nullopt : std::optional(found->second->second);
    }

    void set(const std::string& key, Instant when)
    {
        erase(key);
        byAge_.emplace_back(key, when);
        byKey_.emplace(byAge_.back().first, std::prev(byAge_.end()));
        if (byKey_.size() > capacity_) forgetOldest();
    }

    void erase(const std::string& key)
    {
        const auto found = byKey_.find(key);
        if (found == byKey_.end()) return;
        const auto entry = found->second;
        byKey_.erase(found);
        byAge_.erase(entry);
    }

    /// Forgets every key last seen at `when` or before.
    void forgetUntil(Instant when)
    {
        while (!byAge_.empty() && byAge_.front().second <= when)
            forgetOldest();
    }

    std::size_t size() const { return byKey_.size(); }

private:
    using Ages = std::list<std::pair<std::string, Instant>>;

    void forgetOldest()
    {
        byKey_.erase(byAge_.front().first);
        byAge_.pop_front();
    }

    std::size_t capacity_;
    Ages byAge_; ///< Oldest first.
    std::map<std::string_view, Ages::iterator>
        byKey_; ///< The keys stand in `byAge_`, whose nodes never move.
};

}
