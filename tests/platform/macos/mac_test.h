// SPDX-License-Identifier: MIT
#pragma once

#include "objective_c.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace chimewell::test {

/// A fresh Mac with an application bundle, a main thread and notifications between the parts of the system.
class MacTest : public ::testing::Test {
protected:
    MacTest();

    bool isMainThread() const { return std::this_thread::get_id() == mainThread_; }
    /// Runs what was queued for the main thread.
    static void runMainQueue();
    /// Tells those who observe that notification at that centre, in the order of their registration.
    static void notify(objc::Value center, const std::string& notification);

private:
    std::thread::id mainThread_ = std::this_thread::get_id();
};

}
