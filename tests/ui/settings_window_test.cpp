// SPDX-License-Identifier: MIT
#include "ui/settings/settings_window.h"

#include "ui/controls/confirm_dialog.h"
#include "window_test.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSpinBox>

#include <tuple>

namespace chimewell::test {
namespace {

class SettingsWindowTest : public WindowTest {
protected:
    void open(Pane pane)
    {
        const Windows windows{.openSettings = [] {}, .openOnboarding = [this] { ++onboardings; }};
        auto* opened = new SettingsWindow(fakes.services, windows);
        opened->show(pane);
        WindowTest::open(opened);
    }
    const AppSettings& settings() const { return store.settings(); }

    int onboardings = 0;
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
    EXPECT_EQ(focused(), "Every 1 minute"); // the button is hidden now
    press(Qt::Key_Tab);
    press(Qt::Key_End);
    EXPECT_EQ(settings().reminderMaxCount, 20);
    EXPECT_TRUE(shows("Up to 20 reminders"));
}

TEST_F(SettingsWindowTest, AnEventsRowAndTheSettingsFollowOneAnother)
{
    open(Pane::events);
    EXPECT_TRUE(find("Show banner for Finished"));
    EXPECT_FALSE(find("Show banner for Error")); // closed until it is switched on
    click("Enable Error");
    EXPECT_TRUE(setting(CanonicalEvent::error).enabled);
    const bool hadBanner = setting(CanonicalEvent::error).showPopup;
    click("Show banner for Error");
    EXPECT_NE(setting(CanonicalEvent::error).showPopup, hadBanner);
    pick("Sound for Error", "Silent");
    EXPECT_EQ(setting(CanonicalEvent::error).soundId, "__silent__");
    EXPECT_FALSE(at("Preview the Error alert").isEnabled());
    click("Speak for Error");
    EXPECT_TRUE(at("Preview the Error alert").isEnabled());

    const int writes = system.files.writes;
    store.updateEvent(CanonicalEvent::error, [](EventSetting& changed) {
        changed.enabled = changed.speak = false;
        changed.soundId = "Frog";
    });
    EXPECT_FALSE(at("Enable Error").isChecked());
    EXPECT_EQ(at<QComboBox>("Sound for Error").currentText(), QStringLiteral("Frog"));
    EXPECT_EQ(system.files.writes, writes + 1);                                // showing it writes nothing
    QTest::mouseClick(at("Options for Error").parentWidget(), Qt::LeftButton); // the row is as good
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
    store.updateEvent(CanonicalEvent::finished, [](EventSetting& changed) { changed.spokenPhrase = "x"; });
    EXPECT_EQ(phrase->text(), QStringLiteral("All d")); // what the user is writing stays
    QTest::keyClicks(phrase, QStringLiteral("one"));
    press(Qt::Key_Return);
    EXPECT_EQ(setting(CanonicalEvent::finished).spokenPhrase, "All done");
    press(Qt::Key_Exclam, Qt::ShiftModifier);
    EXPECT_EQ(setting(CanonicalEvent::finished).spokenPhrase, "All done");
    window->close();
    EXPECT_EQ(setting(CanonicalEvent::finished).spokenPhrase, "All done!");
    settle();
    EXPECT_FALSE(window);

    open(Pane::events);
    at<QLineEdit>("Phrase for Finished").setFocus();
    press(Qt::Key_X);
    delete window; // at the end of the application
    EXPECT_EQ(setting(CanonicalEvent::finished).spokenPhrase, "All done!x");
}

TEST_F(SettingsWindowTest, AVoiceThatIsNotInstalledStaysChosen)
{
    system.speech.voices = {{"anna", "Anna", "en-GB"}, {"ben", "Ben", "en-US"}};
    store.updateEvent(CanonicalEvent::finished, [](EventSetting& changed) {
        changed.speak = true;
        changed.voiceIdentifier = "old voice";
    });
    open(Pane::events);
    EXPECT_EQ(at<QComboBox>("Voice for Finished").currentText(), QStringLiteral("old voice"));
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
    click("Install Codex");
    const auto* question = window->findChild<QDialog*>();
    const int height = question->height();
    click("Entries to be added");
    EXPECT_TRUE(QTest::qWaitFor([&] { return question->height() > height; }));
    answer(QDialogButtonBox::RejectRole);
    EXPECT_EQ(system.files.contents, before);
    at("Install Codex").setFocus();
    click("Install Codex");
    answer(QDialogButtonBox::AcceptRole);
    EXPECT_NE(system.files.contents, before);
    const std::string news = "Installed. Restart your agent session to pick up the hooks.";
    EXPECT_TRUE(shows(news));
    EXPECT_EQ(focused(), "Show Codex in the file manager"); // not lost with the button
    click("Uninstall Codex");
    EXPECT_FALSE(asks()); // not so soon
    system.time.advance(ProviderCard::pauseTime);
    answer(QDialogButtonBox::RejectRole);
    click("Show Codex in the file manager");
    EXPECT_EQ(system.workspace.asked, std::vector<std::string>{"reveal /home/me/.codex/config.toml"});

    open(Pane::providers);
    EXPECT_FALSE(shows(news));
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    settle();
    system.files.contents["/home/me/.codex/config.toml"] = ""; // by the agent
    window->activateWindow();
    settle();
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
    system.files.contents["/home/me/.claude/settings.json"] = "{"; // the card above will say more
    click("Install Cursor");
    answer(QDialogButtonBox::AcceptRole);
    fakes.services.cards.refresh();
    settle();
    EXPECT_EQ(card->mapTo(window, QPoint()).y(), top);
}

TEST_F(SettingsWindowTest, ReturnIsYesOnlyWhereNothingIsTakenAway)
{
    const std::tuple<PendingAction, Qt::Key, QDialog::DialogCode> cases[] = {
        {PendingAction::install, Qt::Key_Return, QDialog::Accepted},
        {PendingAction::uninstall, Qt::Key_Return, QDialog::Rejected},
        {PendingAction::restore, Qt::Key_Return, QDialog::Rejected},
        {PendingAction::update, Qt::Key_Escape, QDialog::Rejected}};
    for (const auto& [action, key, answer] : cases) {
        const Confirmation question = fakes.services.cards.all().front()->confirmation(action);
        auto* dialog = new ConfirmDialog(question, fakes.words, nullptr);
        const QSignalSpy answers(dialog, &QDialog::finished);
        WindowTest::open(dialog);
        press(key);
        ASSERT_EQ(answers.size(), 1) << static_cast<int>(action);
        EXPECT_EQ(answers.at(0).at(0).toInt(), answer) << static_cast<int>(action);
        EXPECT_FALSE(window);
    }
}

TEST_F(SettingsWindowTest, GeneralTellsWhatGoesWrong)
{
    system.center.permission = NotificationPermission::denied;
    system.loginItem.refuses = true;
    open(Pane::general);
    window->findChild<QListWidget*>()->setFocus();
    press(Qt::Key_Home);
    EXPECT_TRUE(find("Enable Error"));
    press(Qt::Key_End);
    const std::string off = "Banners are turned off";
    EXPECT_TRUE(shows("Denied — sound will still play"));
    EXPECT_FALSE(shows(off));
    click("Test banner permission");
    EXPECT_TRUE(shows(off));
    EXPECT_EQ(system.sounds.names(), std::vector<std::string>{"Tink"}); // is heard all the same
    system.center.available = false;
    click("Test banner permission");
    EXPECT_TRUE(shows("no notification service is running"));
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
    QTest::mouseClick(&at<QLabel>("Mute all notifications"), Qt::LeftButton); // as good as the switch
    EXPECT_TRUE(shows("No space left on device"));
    system.files.full = false;
    store.update([](AppSettings& changed) { changed.globalMuted = false; });
    EXPECT_FALSE(shows("No space left on device"));
    EXPECT_FALSE(at("Mute all notifications").isChecked());
    fakes.services.actions.muteForAnHour();
    EXPECT_TRUE(at("Mute all notifications").isChecked() && shows("Until 14:05"));
    EXPECT_FALSE(at("Disconnect All…").isEnabled());
    fakes.services.cards.all().back()->perform(PendingAction::install);
    system.time.advance(ProviderCard::pauseTime);
    click("Disconnect All…");
    answer(QDialogButtonBox::AcceptRole);
    EXPECT_TRUE(shows("Uninstalled. Your other hooks were left untouched."));
    click("Show setup walkthrough…");
    EXPECT_EQ(onboardings, 1);
}

}
}
