// SPDX-License-Identifier: MIT
#include "ui/onboarding/onboarding_window.h"

#include "ui/look/chimewell_style.h"
#include "ui/user_interface.h"
#include "window_test.h"

#include <QTimer>

#include <functional>
#include <utility>

namespace chimewell::test {
namespace {

class OnboardingWindowTest : public WindowTest {
protected:
    OnboardingWindowTest()
    {
        QApplication::setStyle(new ChimewellStyle);
        open();
    }
    void open() { WindowTest::open(onboarding = new OnboardingWindow(fakes.services)); }

    OnboardingWindow* onboarding = nullptr;
};

TEST_F(OnboardingWindowTest, EndsForGoodHoweverItIsLeft)
{
    const std::function<void()> ways[] = {
        [this] { press(Qt::Key_Escape); },
        [this] { window->close() && window->close(); },
    };
    std::vector<ActivationPolicy>& policies = system.activation.policies;
    for (const auto& leave : ways) {
        store.update([](AppSettings& settings) { settings.hasCompletedOnboarding = false; });
        if (!window) open();
        window->hide();
        window->show();
        EXPECT_EQ(policies, std::vector{ActivationPolicy::regular}); // once, however often it shows
        EXPECT_EQ(std::exchange(system.activation.activations, 0), 1);
        leave();
        settle();
        EXPECT_EQ(policies.back(), ActivationPolicy::accessory);
        policies.clear();
        EXPECT_TRUE(store.settings().hasCompletedOnboarding);
        EXPECT_FALSE(window);
    }
}

TEST_F(OnboardingWindowTest, IsNotEndedByTheEndOfTheApplication)
{
    const UserInterface interface(fakes.services, {});
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QApplication::exec();
    EXPECT_FALSE(store.settings().hasCompletedOnboarding);
}

TEST_F(OnboardingWindowTest, GoesFromStepToStepByKeyboard)
{
    EXPECT_FALSE(find("Back"));
    const QRect place = at("Continue").geometry();
    for (const std::string title :
         {"Welcome to Chimewell", "How it works", "Allow notifications", "Connect your agents"}) {
        EXPECT_EQ(focused(), title); // screen readers read it
        press(Qt::Key_Return);
    }
    EXPECT_EQ(focused(), "Sounds & voice");
    EXPECT_TRUE(shows("Step 5 of 5"));
    EXPECT_EQ(at("Done").geometry(), place);

    at("Back").setFocus(Qt::TabFocusReason);
    window->setAttribute(Qt::WA_KeyboardFocusChange); // shows the focus ring
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), "Connect your agents");
}

TEST_F(OnboardingWindowTest, FollowsAgentsAndPermissionWhenTheUserComesBack)
{
    system.files.contents["/home/me/.cursor/hooks.json"] = "{";
    system.center.permission = NotificationPermission::denied;
    QEvent activation(QEvent::ActivationChange);
    QApplication::sendEvent(window, &activation);
    onboarding->show(OnboardingStep::notifications);
    EXPECT_TRUE(shows("Denied — sound will still play"));
    EXPECT_TRUE(find("Open Notification Settings"));
    EXPECT_FALSE(at("Allow Notifications").isEnabled());
    system.center.permission = NotificationPermission::notDetermined;
    fakes.services.notifications.refreshStatus();
    EXPECT_FALSE(find("Open Notification Settings"));
    click("Allow Notifications");
    EXPECT_EQ(system.center.requests, 1);
    EXPECT_TRUE(shows("Allowed"));
    EXPECT_FALSE(at("Allow Notifications").isEnabled());
    onboarding->show(OnboardingStep::installHooks);
    EXPECT_TRUE(shows("is not valid JSON"));
}

}
}
