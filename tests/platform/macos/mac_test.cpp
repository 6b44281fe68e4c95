// SPDX-License-Identifier: MIT
#include "mac_test.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace chimewell::test {

namespace {

using namespace objc;

struct Observer {
    Value observation;
    Value center;
    std::string notification;
    void (^block)(Id);
};

std::vector<void (^)()> mainQueue;
std::vector<Observer> observers;

}

MacTest::MacTest()
{
    reset();
    mainQueue.clear();
    observers.clear();
    shared("mainBundle").set("bundleIdentifier", "app.chimewell.Chimewell");
    implement(
        "addOperationWithBlock:", +[](Id queue, const char*, void (^task)()) {
            EXPECT_EQ(queue, Id(shared("mainQueue")));
            mainQueue.push_back(keep(task));
        });
    implement(
        "addObserverForName:object:queue:usingBlock:",
        +[](Id center, const char*, Id name, Id, Id, void (^block)(Id)) -> Id {
            observers.push_back({object(), center, Value(name).text(), keep(block)});
            return observers.back().observation;
        });
    implement(
        "removeObserver:", +[](Id, const char*, Id observation) {
            std::erase_if(observers,
                          [&](const Observer& each) { return each.observation == Value(observation); });
        });
}

void MacTest::runMainQueue()
{
    for (const auto& task : std::exchange(mainQueue, {}))
        task();
}

void MacTest::notify(Value center, const std::string& notification)
{
    for (const Observer& each : std::vector(observers))
        if (each.center == center && each.notification == notification) each.block(object());
}

}
