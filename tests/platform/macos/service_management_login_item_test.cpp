// SPDX-License-Identifier: MIT
#include "platform/macos/service_management_login_item.h"

#include "fakes/login_item.h"
#include "settings/launch_at_login.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

TEST(ServiceManagementLoginItemTest, ChangesOnlyWhatIsNotSo)
{
    constexpr long notRegistered = 0;
    constexpr long enabled = 1;
    constexpr long requiresApproval = 2;
    constexpr long notFound = 3;
    using Answer = std::optional<std::string>;
    const Answer worked;
    const Answer refused = "Launch at login could not be changed: Not möglich";
    struct Case {
        long status;
        bool wanted;
        Answer refusal;
        std::vector<std::string> asked;
        Answer answer;
    };
    const Case cases[] = {
        {notRegistered, true, {}, {"register"}, worked},
        {enabled, true, {}, {}, worked},
        {requiresApproval, true, {}, {"register"}, worked},
        {notFound, true, "Not möglich", {"register"}, refused},
        {enabled, false, {}, {"unregister"}, worked},
        {enabled, false, "Not möglich", {"unregister"}, refused},
        {notRegistered, false, {}, {}, worked},
        {requiresApproval, false, {}, {}, worked},
        {notFound, false, {}, {}, worked},
    };
    ServiceManagementLoginItem item;
    for (const Case& each : cases) {
        mac::loginItem() = {.status = each.status, .refusal = each.refusal, .asked = {}};
        const auto message = setLaunchAtLogin(item, each.wanted);
        EXPECT_EQ(message ? Answer(english(*message)) : Answer(), each.answer) << each.status << each.wanted;
        EXPECT_EQ(mac::loginItem().asked, each.asked) << each.status << each.wanted;
        if (!each.refusal && !each.asked.empty()) EXPECT_EQ(item.isEnabled(), each.wanted);
    }
}

}
