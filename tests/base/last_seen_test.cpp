// SPDX-License-Identifier: MIT
#include "base/last_seen.h"
#include "base/subscription.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

namespace chimewell::test {

using namespace std::chrono_literals;

TEST(LastSeenTest, ForgetsByAgeAndByCapacity)
{
    LastSeen seen(2);
    seen.set("a", Instant(1s));
    seen.set("b", Instant(2s));
    seen.set("a", Instant(3s)); // seen again: b is the oldest now
    seen.set("c", Instant(4s));
    EXPECT_FALSE(seen.find("b"));
    EXPECT_EQ(seen.find("a"), Instant(3s));

    seen.forgetUntil(Instant(3s));
    EXPECT_FALSE(seen.find("a"));
    EXPECT_EQ(seen.find("c"), Instant(4s));
    seen.erase("c");
    EXPECT_EQ(seen.size(), 0u);
}

TEST(SubscribersTest, MayComeAndGoWhileTheyAreTold)
{
    Subscribers subscribers;
    std::vector<char> told;
    Subscription second;
    Subscription late;
    const Subscription first = subscribers.add([&] {
        told.push_back('1');
        second.reset();
        late = subscribers.add([&] { told.push_back('L'); });
    });
    second = subscribers.add([&] { told.push_back('2'); });

    subscribers.notify();
    EXPECT_EQ(told, (std::vector{'1'}));
}

TEST(SubscribersTest, AreOutlivedBySubscriptions)
{
    Subscription subscription;
    {
        Subscribers subscribers;
        int told = 0;
        subscription = subscribers.add([&] { ++told; });
        Subscription moved = std::move(subscription);
        subscribers.notify();
        EXPECT_EQ(told, 1);
        subscription = std::move(moved);
    }
    subscription.reset(); // nobody left to tell
}

}
