// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/alert_audio.h"
#include "alerts/notification_service.h"
#include "events/event_history.h"
#include "events/event_router.h"
#include "events/muting.h"
#include "events/session_focus.h"
#include "ports/application_activation.h"
#include "ports/login_item.h"
#include "ports/random.h"
#include "ports/resources.h"
#include "settings/settings_store.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace chimewell {

/// Everything that the user can do in a window, in the icon's menu or in the launcher's menu, apart from what
/// a `ProviderCard` does to an agent's file. The only one that changes settings on the user's behalf.
class UserActions {
public:
    struct Collaborators {
        SettingsStore& store;
        Muting& muting;
        EventHistory& history;
        EventRouter& router;
        NotificationService& notifications;
        SoundPlayer& sound;
        AlertAudio& audio;
        SessionFocus& focus;
        LoginItem& loginItem;
        Random& random;
        ApplicationActivation& activation;
        const Resources& resources;
    };
    explicit UserActions(Collaborators with) : with_(with) {}

    /// Exits the application as the user's own quit; set once at start-up.
    std::function<void()> onQuit;
    void quit() const { onQuit(); }

    void setMuted(bool muted);
    void muteForAnHour();
    /// Applies `change` to the event's setting. Does nothing for an event without one.
    void changeEvent(CanonicalEvent event, const std::function<void(EventSetting&)>& change);
    void setRemindersEnabled(bool enabled);
    void setReminderInterval(std::int64_t seconds);
    void setReminderCount(std::int64_t count);
    /// Stores the choice and tells the system. The message says why that was not possible; the choice stays
    /// stored.
    std::optional<Phrase> setLaunchAtLogin(bool wanted);

    /// Sends a real event through the router, subject to the settings.
    void playSample();
    /// What is heard of the event, enabled or not.
    void preview(CanonicalEvent event);
    void testBanner();
    void allowNotifications();
    void openNotificationSettings();

    void clearHistory();
    void openSession(const std::optional<std::string>& term, const std::optional<std::string>& cwd);

    /// The onboarding window opened: while it shows, the application has an icon among the running ones.
    void beginOnboarding();
    /// The onboarding window closed, whichever way.
    void completeOnboarding();
    /// A window of ours is to be in front.
    void comeForward();

private:
    Collaborators with_;
};

}
