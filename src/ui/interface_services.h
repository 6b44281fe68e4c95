// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/notification_service.h"
#include "alerts/voice_announcer.h"
#include "events/event_history.h"
#include "events/session_focus.h"
#include "ports/clock.h"
#include "ports/speech_synthesizer.h"
#include "ports/user_locale.h"
#include "ports/workspace.h"
#include "presentation/provider_cards.h"
#include "presentation/user_actions.h"
#include "settings/settings_store.h"
#include "ui/words.h"

#include <functional>
#include <string>

namespace chimewell {

/// Pages on the web that we point to; whole addresses.
struct WebAddresses {
    std::string website;
    std::string support;
    std::string privacyPolicy;
    std::string terms;
};

/// What every window shows and acts on. All of it outlives the windows.
struct InterfaceServices {
    SettingsStore& store;
    EventHistory& history;
    NotificationService& notifications;
    UserActions& actions;
    ProviderCards& cards;
    SessionFocus& focus;
    VoiceAnnouncer& voice;
    SpeechSynthesizer& speech;
    Workspace& workspace;
    const UserLocale& locale;
    const Clock& clock;
    const Words& words;
    std::string version;
    WebAddresses addresses;
    /// The user leaves: nothing comes back before the next start by hand.
    std::function<void()> quit;
};

/// Opens another window. One of each is enough: a second call brings it forward.
struct Windows {
    std::function<void()> openSettings;
    std::function<void()> openWalkthrough;
};

}
