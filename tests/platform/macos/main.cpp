// SPDX-License-Identifier: MIT
#include "fakes/per_test.h"
#include "fakes/run_loop.h"
#include "fakes/user_notifications.h"
#include "runtime/live_objects.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>

namespace chimewell::test::mac {
namespace {

/// Gives each test a Mac of its own, and fails it when an object or a registration is left over.
class FreshMac : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override
    {
        before_ = objc::liveObjects();
        pool_.emplace();
    }

    void OnTestEnd(const ::testing::TestInfo&) override
    {
        pool_.reset();
        {
            const objc::AutoreleasePool pool;
            banners().giveAnswers(); // those that come when nobody is there any more
            runLoop().turn();
        }
        for (const TestEnd& end : testEnds()) {
            const objc::AutoreleasePool pool;
            EXPECT_EQ(end.leftover(), "");
            end.reset();
        }
        EXPECT_EQ(objc::liveObjects(), before_);
    }

    std::map<std::string, long> before_;
    std::optional<objc::AutoreleasePool> pool_;
};

}
}

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new chimewell::test::mac::FreshMac);
    return RUN_ALL_TESTS();
}
