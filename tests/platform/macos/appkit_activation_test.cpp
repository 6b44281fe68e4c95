// SPDX-License-Identifier: MIT
#include "platform/macos/appkit_activation.h"

#include "fakes/workspace.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace chimewell::test {

TEST(AppKitActivationTest, SetsThePolicyAndComesBeforeOtherApplications)
{
    AppKitActivation activation;
    activation.setPolicy(ActivationPolicy::accessory);
    activation.setPolicy(ActivationPolicy::regular);
    activation.activate();
    EXPECT_EQ(mac::applicationRecord(), (std::vector<std::string>{"accessory", "regular", "activate"}));
}

}
