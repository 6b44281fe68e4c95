// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/alert_preview.h"
#include "alerts/notification_service.h"
#include "alerts/sound_player.h"
#include "events/event_router.h"
#include "ports/application_activation.h"
#include "ports/login_item.h"
#include "ports/random.h"
#include "settings/settings_store.h"

#include <optional>

namespace chimewell {

/// What the user can do in more than one place: the panel, the icon's menu, the settings, the walkthrough,
/// the launcher's menu.
class UserActions {
public:
    struct Collaborators {
        SettingsStore& store;
        EventRouter& router;
        NotificationService& notifications;
        SoundPlayer& sound;
        AlertPreview& preview;
        LoginItem& loginItem;
        Random& random;
        ApplicationActivation& activation;
    };
    explicit UserActions(Collaborators with) : with_(with) {}

    /// A real event goes its whole way, as the settings say.
    void playSample();
    /// The event as it is set up, switched on or not.
    void preview(CanonicalEvent event);
    void testBanner();
    void setMuted(bool muted);
    /// Stores the wish and tells the system; the message says why that failed. The wish stays stored.
    std::optional<Phrase> setLaunchAtLogin(bool wanted);
    /// The walkthrough shows: for so long the application is one among the others, with a window in front.
    void beginOnboarding();
    /// However it ended.
    void completeOnboarding();
    /// A window of ours is to be in front.
    void comeForward();

private:
    Collaborators with_;
};

}
