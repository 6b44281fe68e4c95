// SPDX-License-Identifier: MIT
#include "presentation/user_actions.h"

#include "settings/launch_at_login.h"
#include "values/event_url.h"
#include "values/texts.h"

namespace chimewell {

void UserActions::playSample()
{
    if (const auto payload = parseEventUrl(sampleEventUrl(with_.random.uuid())))
        with_.router.handle(*payload);
}

void UserActions::preview(CanonicalEvent event)
{
    if (const EventSetting* setting = with_.store.settings().setting(event)) with_.preview.play(*setting);
}

void UserActions::testBanner()
{
    with_.notifications.post(texts::chimewell, texts::bannerTest, std::nullopt, std::nullopt);
    with_.sound.play("Tink");
}

void UserActions::setMuted(bool muted)
{
    with_.store.update([&](AppSettings& settings) { settings.globalMuted = muted; });
}

std::optional<Phrase> UserActions::setLaunchAtLogin(bool wanted)
{
    with_.store.update([&](AppSettings& settings) { settings.launchAtLogin = wanted; });
    return chimewell::setLaunchAtLogin(with_.loginItem, wanted);
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
