// SPDX-License-Identifier: MIT
#include "support/windows_on_fakes.h"
#include "ui/controls/windows.h"
#include "ui/settings/settings_window.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace chimewell::test {
namespace {

class SettingsWindowTest : public ::testing::Test {
protected:
    ~SettingsWindowTest() override { delete window; }

    void open(Pane pane)
    {
        const Windows windows{.openSettings = [] {}, .openOnboarding = [this] { ++walkthroughs; }};
        window = new SettingsWindow(fakes.services, windows);
        window->show(pane);
        window->show();
        window->activateWindow();
        settle();
    }
    /// The user does something in another window.
    void goElsewhere()
    {
        elsewhere.show();
        elsewhere.activateWindow();
        settle();
    }
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// The widget in sight that is called so, or described so where its name is its content.
    template<class T = QAbstractButton>
    T* find(const std::string& name)
    {
        for (auto* widget : window->findChildren<T*>()) {
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            if (widget->isVisible() && (widget->accessibleName().toStdString() == name ||
                                        (button && widget->accessibleName().isEmpty() &&
                                         withoutMnemonic(button->text()).toStdString() == name)))
                return widget;
        }
        return nullptr;
    }
    template<class T = QAbstractButton>
    T& at(const std::string& name)
    {
        T* found = find<T>(name);
        if (!found) throw std::out_of_range("nothing in sight is called " + name);
        return *found;
    }
    void click(const std::string& name)
    {
        QAbstractButton& button = at(name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, button.rect().center());
        settle();
    }
    void pick(const std::string& picker, const std::string& entry)
    {
        auto* box = &at<QComboBox>(picker);
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = box->findText(QString::fromStdString(entry)); i > 0; --i)
            QTest::keyClick(box, Qt::Key_Down);
        ASSERT_EQ(box->currentText().toStdString(), entry);
    }
    void answer(QDialogButtonBox::ButtonRole role)
    {
        auto* question = window->findChild<QDialog*>();
        ASSERT_TRUE(question && question->isVisible());
        for (QAbstractButton* button : question->findChild<QDialogButtonBox*>()->buttons())
            if (question->findChild<QDialogButtonBox*>()->buttonRole(button) == role) button->click();
        settle();
    }
    bool shows(const std::string& text) { return find<QWidget>(text); }
    const AppSettings& settings() const { return fakes.services.store.settings(); }
    const EventSetting& setting(CanonicalEvent event) const { return *settings().setting(event); }

    WindowsOnFakes fakes;
    FakeSystem& system = fakes.system;
    SettingsStore& store = fakes.services.store;
    QPointer<SettingsWindow> window;
    QWidget elsewhere;
    int walkthroughs = 0;
};

TEST_F(SettingsWindowTest, ShowsTheStoredIntervalAndChangesItOnlyWhenToldTo)
{
    store.update([](AppSettings& changed) { changed.reminderIntervalSeconds = 90; });
    const int writes = system.files.writes;
    open(Pane::events);
    auto* minutes = &at<QSpinBox>("Every 1 minute");
    EXPECT_EQ(at<QComboBox>("Repeat every").currentIndex(), -1);
    EXPECT_EQ(settings().reminderIntervalSeconds, 90);
    EXPECT_EQ(system.files.writes, writes);
    QTest::keyClick(minutes, Qt::Key_Plus);
    EXPECT_EQ(settings().reminderIntervalSeconds, 120); // a preset's, but it is being edited
    EXPECT_TRUE(shows("Every 2 minutes"));

    pick("Repeat every", "30 seconds");
    EXPECT_EQ(settings().reminderIntervalSeconds, 30);
    EXPECT_FALSE(shows("Every 1 minute"));
    click("Custom…");
    EXPECT_EQ(settings().reminderIntervalSeconds, 30);
    EXPECT_EQ(window->focusWidget(), find<QSpinBox>("Every 1 minute")); // the button is gone
    EXPECT_FALSE(find("Custom…"));
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget(), find<QSpinBox>("Up to 5 reminders"));
    pick("Repeat every", "30 seconds");
    EXPECT_FALSE(shows("Every 1 minute"));

    QTest::keyClick(&at<QSpinBox>("Up to 5 reminders"), Qt::Key_End);
    EXPECT_EQ(settings().reminderMaxCount, 20);
    EXPECT_TRUE(shows("Up to 20 reminders"));
    click("Keep reminding me while the agent waits");
    EXPECT_FALSE(settings().remindersEnabled);
}

TEST_F(SettingsWindowTest, AnEventsRowAndTheSettingsFollowOneAnother)
{
    open(Pane::events);
    EXPECT_TRUE(find("Show banner for Finished"));
    EXPECT_FALSE(find("Show banner for Error")); // closed until it is switched on
    click("Enable Error");
    EXPECT_TRUE(setting(CanonicalEvent::error).enabled);
    EXPECT_TRUE(find("Show banner for Error"));
    const bool hadBanner = setting(CanonicalEvent::error).showPopup;
    int writes = system.files.writes;
    click("Show banner for Error");
    EXPECT_NE(setting(CanonicalEvent::error).showPopup, hadBanner);
    EXPECT_EQ(system.files.writes, writes + 1);
    pick("Sound for Error", "Silent");
    EXPECT_EQ(setting(CanonicalEvent::error).soundId, "__silent__");
    EXPECT_FALSE(at("Preview the Error alert").isEnabled());
    click("Speak for Error");
    EXPECT_TRUE(at("Preview the Error alert").isEnabled());

    writes = system.files.writes;
    store.updateEvent(CanonicalEvent::error, [](EventSetting& changed) {
        changed.enabled = changed.speak = false;
        changed.soundId = "Frog";
    });
    EXPECT_FALSE(at("Enable Error").isChecked());
    EXPECT_EQ(at<QComboBox>("Sound for Error").currentText(), QStringLiteral("Frog"));
    EXPECT_EQ(system.files.writes, writes + 1); // showing it writes nothing
    click("Options for Error");
    settle();
    EXPECT_FALSE(at("Options for Error").isChecked());
}

TEST_F(SettingsWindowTest, APhraseIsStoredWhenItIsWritten)
{
    store.updateEvent(CanonicalEvent::finished, [](EventSetting& changed) { changed.speak = true; });
    open(Pane::events);
    auto* phrase = &at<QLineEdit>("Phrase for Finished");
    EXPECT_EQ(phrase->placeholderText(), QStringLiteral("The agent has finished"));
    phrase->setFocus();
    QTest::keyClicks(phrase, QStringLiteral("All d"));
    store.update([](AppSettings& changed) { changed.globalMuted = true; });
    store.updateEvent(CanonicalEvent::finished, [](EventSetting& changed) { changed.spokenPhrase = "x"; });
    EXPECT_EQ(phrase->text(), QStringLiteral("All d")); // nobody writes into what I write
    QTest::keyClicks(phrase, QStringLiteral("one"));
    QTest::keyClick(phrase, Qt::Key_Return);
    EXPECT_EQ(setting(CanonicalEvent::finished).spokenPhrase, "All done");
    QTest::keyClick(phrase, Qt::Key_Exclam, Qt::ShiftModifier);
    EXPECT_EQ(setting(CanonicalEvent::finished).spokenPhrase, "All done");
    window->close();
    EXPECT_EQ(setting(CanonicalEvent::finished).spokenPhrase, "All done!");
    settle();
    EXPECT_FALSE(window);
}

TEST_F(SettingsWindowTest, AVoiceThatIsGoneStaysChosen)
{
    system.speech.voices = {{"anna", "Anna", "en-GB"}, {"ben", "Ben", "en-US"}};
    store.updateEvent(CanonicalEvent::finished, [](EventSetting& changed) {
        changed.speak = true;
        changed.voiceIdentifier = "old voice";
    });
    open(Pane::events);
    auto* voice = &at<QComboBox>("Voice for Finished");
    EXPECT_EQ(voice->currentText(), QStringLiteral("old voice"));
    EXPECT_EQ(voice->count(), 4);
    EXPECT_EQ(setting(CanonicalEvent::finished).voiceIdentifier, "old voice");
    pick("Voice for Finished", "Ben");
    EXPECT_EQ(setting(CanonicalEvent::finished).voiceIdentifier, "ben");
    pick("Voice for Finished", "System default");
    EXPECT_EQ(setting(CanonicalEvent::finished).voiceIdentifier, std::nullopt);
}

TEST_F(SettingsWindowTest, AFileIsChangedOnlyAfterAYes)
{
    open(Pane::providers);
    const auto before = system.files.contents;
    at("Install Codex").setFocus();
    click("Install Codex");
    answer(QDialogButtonBox::RejectRole);
    EXPECT_EQ(system.files.contents, before);

    click("Install Codex");
    answer(QDialogButtonBox::AcceptRole);
    EXPECT_NE(system.files.contents, before);
    EXPECT_TRUE(shows("Installed. Restart your agent session to pick up the hooks."));
    EXPECT_FALSE(find("Install Codex"));
    EXPECT_EQ(window->focusWidget(), find("Show Codex in the file manager")); // not lost with the button
    click("Uninstall Codex");
    EXPECT_FALSE(window->findChild<QDialog*>()); // not so soon
    system.time.advance(ProviderCard::pauseTime);
    answer(QDialogButtonBox::RejectRole);

    click("Show Codex in the file manager");
    EXPECT_EQ(system.workspace.asked, std::vector<std::string>{"reveal /home/me/.codex/config.toml"});
    window->close();
    settle();
    open(Pane::providers);
    EXPECT_FALSE(shows("Installed. Restart your agent session to pick up the hooks."));
    at("Uninstall Codex").setFocus();
    goElsewhere();
    system.files.contents["/home/me/.codex/config.toml"] = ""; // by the agent
    window->activateWindow();
    settle();
    EXPECT_EQ(window->focusWidget(), find("Show Codex in the file manager"));
    EXPECT_TRUE(shows("Hooks are missing from this file. Install them again."));
    EXPECT_TRUE(find("Install Codex"));
}

TEST_F(SettingsWindowTest, ACardStaysWhereItWasUsed)
{
    open(Pane::providers);
    window->resize(window->minimumSize());
    settle();
    QScrollBar* bar = window->findChild<QScrollArea*>(QStringLiteral("providers"))->verticalScrollBar();
    bar->setValue(bar->maximum());
    QWidget* card = &at<QWidget>("Cursor");
    const int top = card->mapTo(window, QPoint()).y();
    system.files.contents["/home/me/.claude/settings.json"] = "{"; // its card above will say more
    click("Install Cursor");
    answer(QDialogButtonBox::AcceptRole);
    fakes.services.cards.refresh();
    settle();
    EXPECT_EQ(card->mapTo(window, QPoint()).y(), top);
}

TEST_F(SettingsWindowTest, AlertsOfThePastAreGoneThroughByKeyboard)
{
    EventHistory& history = fakes.services.history;
    history.add({.type = CanonicalEvent::finished, .provider = "claude", .cwd = "/srv/one"}, false);
    history.add({.type = CanonicalEvent::error, .provider = "claude"}, false);
    system.workspace.paths["/srv/one"] = FileKind::folder;
    open(Pane::recent);
    at<QWidget>("Error, The agent reported an error., 14:05 (0 seconds ago)").setFocus();
    QTest::keyClick(window->focusWidget(), Qt::Key_Return); // there is no session
    QTest::keyClick(window->focusWidget(), Qt::Key_Down);
    history.add({.type = CanonicalEvent::toolUse, .provider = "claude"}, false); // comes in at the top
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(system.workspace.asked, std::vector<std::string>{"folder /srv/one"});
    QTest::keyClick(window->focusWidget(), Qt::Key_Up);
    EXPECT_EQ(window->focusWidget()->accessibleName().toStdString().find("Error"), 0U);
    click("Clear");
    EXPECT_TRUE(history.entries().empty());
    EXPECT_TRUE(shows("No recent activity yet"));
    EXPECT_FALSE(at("Clear").isEnabled());
}

TEST_F(SettingsWindowTest, GeneralTellsWhatGoesWrong)
{
    system.center.permission = NotificationPermission::denied;
    system.loginItem.refuses = true;
    open(Pane::general);
    const std::string off = "Banners are turned off in your desktop's settings — sound and voice still work.";
    EXPECT_TRUE(shows("Denied — sound will still play"));
    EXPECT_FALSE(shows(off));
    click("Test banner permission");
    EXPECT_TRUE(shows(off));
    system.center.available = false;
    click("Test banner permission");
    EXPECT_TRUE(shows("The test banner could not be shown: no notification service is running."));
    EXPECT_FALSE(find("Open Notification Settings"));
    system.center.available = true;
    system.center.permission = NotificationPermission::authorized;
    fakes.services.notifications.refreshStatus();
    EXPECT_FALSE(shows(off));
    EXPECT_TRUE(shows("Allowed"));

    click("Launch at login");
    EXPECT_TRUE(shows("Launch at login could not be changed: Operation not permitted"));
    EXPECT_TRUE(at("Launch at login").isChecked()); // the wish is stored
    system.files.full = true;
    click("Mute all notifications");
    EXPECT_TRUE(shows("Failed to save settings: No space left on device"));
    system.files.full = false;
    store.update([](AppSettings& changed) { changed.globalMuted = false; });
    EXPECT_FALSE(shows("Failed to save settings: No space left on device"));
    EXPECT_FALSE(at("Mute all notifications").isChecked());
    click("Show setup walkthrough…");
    EXPECT_EQ(walkthroughs, 1);

    int asked = 0;
    addWindowKeys(*window, [&] { ++asked; }, [this] { fakes.services.actions.quit(); });
    QTest::keyClick(window, Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(asked, 1);
    QTest::keyClick(window, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(fakes.quits, 1);
    QTest::keyClick(window, Qt::Key_W, Qt::ControlModifier);
    settle();
    EXPECT_FALSE(window);
}

}
}
