// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace chimewell {

/// Keeps a callback registered for as long as it lives. It may outlive the object that it listens to.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
    Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept
    {
        if (this != &other) {
            reset();
            cancel_ = std::exchange(other.cancel_, nullptr);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { reset(); }

    void reset()
    {
        if (const auto cancel = std::exchange(cancel_, nullptr)) cancel();
    }

private:
    std::function<void()> cancel_;
};

/// The callbacks of everyone who wants to know of a change.
class Subscribers {
public:
    [[nodiscard]] Subscription add(std::function<void()> callback)
    {
        const std::uint64_t id = ++lastId_;
        callbacks_->emplace(id, std::move(callback));
        return Subscription([callbacks = std::weak_ptr(callbacks_), id] {
            if (const auto alive = callbacks.lock()) alive->erase(id);
        });
    }

    /// Calls everyone who is registered; one that is removed meanwhile is not called any more, and
    /// one that is added meanwhile waits for the next change.
    void notify() const
    {
        const auto callbacks = callbacks_; // a callback may destroy us
        const std::uint64_t last = lastId_;
        for (auto next = callbacks->begin(); next != callbacks->end() && next->first <= last;) {
            const std::uint64_t id = next->first;
            const auto callback = next->second; // it may remove itself
            callback();
            next = callbacks->upper_bound(id);
        }
    }

private:
    using Callbacks = std::map<std::uint64_t, std::function<void()>>;
    std::shared_ptr<Callbacks> callbacks_ = std::make_shared<Callbacks>();
    std::uint64_t lastId_ = 0;
};

}
