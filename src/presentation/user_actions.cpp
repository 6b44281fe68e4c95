// SPDX-License-Identifier: MIT
#include "presentation/user_actions.h"

#include "values/event_payload.h"
#include "values/shared_names.h"
#include "values/temporary_location.h"
#include "values/texts.h"

#include <chrono>

namespace chimewell {

void UserActions::setMuted(bool muted)
{
    with_.muting.setMuted(muted);
}

void UserActions::muteForAnHour()
{
    with_.muting.muteFor(std::chrono::hours(1));
}

void UserActions::changeEvent(CanonicalEvent event, const std::function<void(EventSetting&)>& change)
{
    with_.store.updateEvent(event, change);
}

void UserActions::setRemindersEnabled(bool enabled)
{
    with_.store.update([&](AppSettings& settings) { settings.remindersEnabled = enabled; });
}

void UserActions::setReminderInterval(std::int64_t seconds)
{
    with_.store.update([&](AppSettings& settings) { settings.reminderIntervalSeconds = seconds; });
}

void UserActions::setReminderCount(std::int64_t count)
{
    with_.store.update([&](AppSettings& settings) { settings.reminderMaxCount = count; });
}

std::optional<Phrase> UserActions::setLaunchAtLogin(bool wanted)
{
    with_.store.update([&](AppSettings& settings) { settings.launchAtLogin = wanted; });
    if (with_.loginItem.isEnabled() == wanted) return std::nullopt;
    if (wanted && isTemporaryLocation(with_.resources.named(helperName).value_or("")))
        return Phrase(texts::couldNotLaunchAtLogin, {texts::moveToApplications});
    const auto changed = wanted ? with_.loginItem.registerItem() : with_.loginItem.unregisterItem();
    if (changed) return std::nullopt;
    return Phrase(texts::couldNotLaunchAtLogin, {changed.error()});
}

void UserActions::playSample()
{
    if (const auto payload = parseEventUrl(sampleEventUrl(with_.random.uuid())))
        with_.router.handle(*payload);
}

void UserActions::preview(CanonicalEvent event)
{
    if (const EventSetting* setting = with_.store.settings().setting(event)) with_.audio.play(*setting);
}

void UserActions::testBanner()
{
    with_.notifications.post(texts::chimewell, texts::bannerTest, std::nullopt, std::nullopt);
    with_.sound.play("Tink");
    with_.notifications.refreshStatus();
}

void UserActions::allowNotifications()
{
    with_.notifications.requestAuthorization();
}

void UserActions::openNotificationSettings()
{
    with_.notifications.openSystemSettings();
}

void UserActions::clearHistory()
{
    with_.history.clear();
}

void UserActions::openSession(const std::optional<std::string>& term, const std::optional<std::string>& cwd)
{
    with_.focus.focusSession(term, cwd);
}

void UserActions::beginOnboarding()
{
    with_.activation.setPolicy(ActivationPolicy::regular);
    with_.activation.activate();
}

void UserActions::completeOnboarding()
{
    with_.store.update([](AppSettings& settings) { settings.hasCompletedOnboarding = true; });
    with_.activation.setPolicy(ActivationPolicy::accessory);
}

void UserActions::comeForward()
{
    with_.activation.activate();
}

}
