// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/alert_preview.h"
#include "alerts/notification_service.h"
#include "alerts/sound_player.h"
#include "alerts/voice_announcer.h"
#include "app/app_delegate.h"
#include "app/dormant_marker.h"
#include "app/url_event_handler.h"
#include "events/event_history.h"
#include "events/event_router.h"
#include "events/reminder_manager.h"
#include "events/session_focus.h"
#include "hooks/hook_installers.h"
#include "ports/agent_files.h"
#include "ports/application_activation.h"
#include "ports/clock.h"
#include "ports/login_item.h"
#include "ports/notification_center.h"
#include "ports/random.h"
#include "ports/resources.h"
#include "ports/speech_synthesizer.h"
#include "ports/system_sounds.h"
#include "ports/timers.h"
#include "ports/translator.h"
#include "ports/user_folders.h"
#include "ports/user_locale.h"
#include "ports/workspace.h"
#include "presentation/provider_cards.h"
#include "presentation/user_actions.h"
#include "settings/settings_store.h"

#include <filesystem>

namespace chimewell {

/// What a system has to bring; all of it outlives the services.
struct Ports {
    AgentFiles& files;
    const Clock& clock;
    Timers& timers;
    Random& random;
    const UserLocale& locale;
    const Translator& translator;
    const UserFolders& folders;
    const Resources& resources;
    SystemSounds& sounds;
    SpeechSynthesizer& speech;
    NotificationCenter& notifications;
    Workspace& workspace;
    LoginItem& loginItem;
    ApplicationActivation& activation;
};

/// Every object behind the ports, made once, in the order of the start, and wired to one another.
class Services {
public:
    /// `folder` is the application's own.
    Services(const Ports& ports, const std::filesystem::path& folder);
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    SettingsStore store;
    SoundPlayer sound;
    NotificationService notifications;
    VoiceAnnouncer voice;
    EventHistory history;
    ReminderManager reminders;
    EventRouter router;
    SessionFocus focus;
    HookInstallers installers;
    AlertPreview preview;
    UserActions actions;
    ProviderCards cards;
    URLEventHandler urls;
    DormantMarker marker;
    AppDelegate delegate;
};

}
