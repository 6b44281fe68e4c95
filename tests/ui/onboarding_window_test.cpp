// SPDX-License-Identifier: MIT
#include "support/windows_on_fakes.h"
#include "ui/controls/windows.h"
#include "ui/look/chimewell_style.h"
#include "ui/onboarding/onboarding_window.h"
#include "ui/user_interface.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace chimewell::test {
namespace {

class OnboardingWindowTest : public ::testing::Test {
protected:
    OnboardingWindowTest()
    {
        QApplication::setStyle(new ChimewellStyle);
        open();
    }
    ~OnboardingWindowTest() override { delete window; }

    void open()
    {
        window = new OnboardingWindow(fakes.services);
        window->show();
        window->activateWindow();
        settle();
    }
    static void settle()
    {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// The control that is in sight and has that name.
    QAbstractButton* button(const std::string& name)
    {
        for (auto* button : window->findChildren<QAbstractButton*>()) {
            const QString said = button->accessibleName().isEmpty() ? withoutMnemonic(button->text())
                                                                    : button->accessibleName();
            if (button->isVisible() && said.toStdString() == name) return button;
        }
        return nullptr;
    }
    void click(const std::string& name)
    {
        QAbstractButton* found = button(name);
        ASSERT_TRUE(found) << name;
        QTest::mouseClick(found, Qt::LeftButton, {}, found->rect().center());
        settle();
    }
    bool shows(const std::string& text)
    {
        for (const auto* widget : window->findChildren<QWidget*>())
            if (widget->isVisible() && widget->accessibleName().toStdString().find(text) != std::string::npos)
                return true;
        return false;
    }
    std::string focused() { return window->focusWidget()->accessibleName().toStdString(); }
    void answer(QDialogButtonBox::ButtonRole role)
    {
        auto* question = window->findChild<QDialog*>();
        ASSERT_TRUE(question && question->isVisible());
        auto* answers = question->findChild<QDialogButtonBox*>();
        for (QAbstractButton* button : answers->buttons())
            if (answers->buttonRole(button) == role) return QTest::mouseClick(button, Qt::LeftButton);
        FAIL() << "no such answer";
    }

    WindowsOnFakes fakes;
    FakeSystem& system = fakes.system;
    SettingsStore& store = fakes.services.store;
    QPointer<OnboardingWindow> window;
};

TEST_F(OnboardingWindowTest, EndsForGoodHoweverItIsLeft)
{
    const std::function<void()> ways[] = {
        [this] { click("Skip setup"); },
        [this] { QTest::keyClick(window, Qt::Key_Escape); },
        [this] {
            window->close();
            window->close();
        },
        [this] {
            for (int i = 0; i < 4; ++i)
                click("Continue");
            EXPECT_FALSE(store.settings().hasCompletedOnboarding);
            click("Done");
        },
    };
    for (const auto& leave : ways) {
        store.update([](AppSettings& settings) { settings.hasCompletedOnboarding = false; });
        if (!window) open();
        window->hide();
        window->show();
        std::vector<ActivationPolicy>& policies = fakes.system.activation.policies;
        EXPECT_EQ(policies, std::vector{ActivationPolicy::regular}); // once, however often it shows
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
    const UserInterface interface(fakes.services);
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QApplication::exec();
    EXPECT_FALSE(store.settings().hasCompletedOnboarding);
}

TEST_F(OnboardingWindowTest, GoesFromStepToStepByKeyboard)
{
    EXPECT_FALSE(button("Back"));
    const QRect place = button("Continue")->geometry();
    for (const std::string title :
         {"Welcome to Chimewell", "How it works", "Allow notifications", "Connect your agents"}) {
        EXPECT_EQ(focused(), title); // read aloud to those who do not see it
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        settle();
    }
    EXPECT_EQ(focused(), "Sounds & voice");
    EXPECT_TRUE(shows("Step 5 of 5"));
    EXPECT_EQ(button("Done")->geometry(), place);

    button("Back")->setFocus(Qt::TabFocusReason);
    window->setAttribute(Qt::WA_KeyboardFocusChange); // a ring is around it
    QTest::keyClick(button("Back"), Qt::Key_Return);
    EXPECT_EQ(focused(), "Connect your agents");
}

TEST_F(OnboardingWindowTest, InstallsOnlyAfterAYes)
{
    window->show(OnboardingStep::installHooks);
    const std::string file = "/home/me/.claude/settings.json";
    click("Install Claude Code");
    answer(QDialogButtonBox::RejectRole);
    settle();
    EXPECT_FALSE(system.files.contents.contains(file));
    click("Install Claude Code");
    answer(QDialogButtonBox::AcceptRole);
    settle();
    EXPECT_TRUE(system.files.contents.contains(file));
    ASSERT_TRUE(button("Installed: Claude Code"));
    EXPECT_FALSE(button("Installed: Claude Code")->isEnabled());
    EXPECT_TRUE(shows("Installed. Restart your agent session to pick up the hooks."));
}

TEST_F(OnboardingWindowTest, SaysWhyAnAgentCouldNotBeConnected)
{
    system.files.contents["/home/me/.codex/config.toml"] = "notify = [\"other\"]\n";
    window->show(OnboardingStep::installHooks);
    click("Install Codex");
    answer(QDialogButtonBox::AcceptRole);
    settle();
    EXPECT_TRUE(shows("Codex supports only a single `notify` program"));
    click("Install Codex");
    EXPECT_FALSE(window->findChild<QDialog*>()); // not so soon
    system.time.advance(ProviderCard::pauseTime);
    answer(QDialogButtonBox::RejectRole);
}

TEST_F(OnboardingWindowTest, FollowsAgentsAndPermissionWhenTheUserComesBack)
{
    system.files.contents["/home/me/.cursor/hooks.json"] = "{";
    system.center.permission = NotificationPermission::denied;
    QEvent activation(QEvent::ActivationChange);
    QApplication::sendEvent(window, &activation);
    window->show(OnboardingStep::notifications);
    EXPECT_TRUE(shows("Denied — sound will still play"));
    EXPECT_TRUE(button("Open Notification Settings"));
    EXPECT_TRUE(button("Allow Notifications") && !button("Allow Notifications")->isEnabled());
    system.center.permission = NotificationPermission::notDetermined;
    fakes.services.notifications.refreshStatus();
    click("Allow Notifications");
    EXPECT_EQ(system.center.requests, 1);
    EXPECT_TRUE(shows("Allowed"));
    EXPECT_TRUE(button("Allow Notifications") && !button("Allow Notifications")->isEnabled());
    window->show(OnboardingStep::installHooks);
    EXPECT_TRUE(shows("is not valid JSON"));
}

TEST_F(OnboardingWindowTest, SoundsAndLaunchAtLoginReachTheStore)
{
    window->show(OnboardingStep::sounds);
    const auto waiting = [this] { return *store.settings().setting(CanonicalEvent::waitingInput); };
    QComboBox* sound = nullptr;
    for (auto* picker : window->findChildren<QComboBox*>())
        if (picker->accessibleName() == QStringLiteral("Sound for Waiting for input")) sound = picker;
    ASSERT_TRUE(sound);
    sound->setFocus();
    QTest::keyClick(sound, Qt::Key_Home);
    EXPECT_EQ(waiting().soundId, "__silent__");
    EXPECT_FALSE(button("Preview the Waiting for input alert")->isEnabled());

    auto* readAloud = button("Read aloud for Waiting for input");
    ASSERT_TRUE(readAloud);
    QTest::keyClick(readAloud, Qt::Key_Space);
    EXPECT_TRUE(waiting().speak);
    click("Preview the Waiting for input alert");
    EXPECT_EQ(system.speech.spoken.size(), 1U);

    click("Start Chimewell when I log in");
    EXPECT_TRUE(store.settings().launchAtLogin && system.loginItem.enabled);
    EXPECT_FALSE(shows("Launch at login could not be changed"));
    system.loginItem.refuses = true;
    click("Start Chimewell when I log in");
    EXPECT_FALSE(store.settings().launchAtLogin);
    EXPECT_TRUE(shows("Launch at login could not be changed: Operation not permitted"));
}

}
}
