// SPDX-License-Identifier: MIT
#pragma once

#include "alerts/alert_audio.h"
#include "alerts/notification_service.h"
#include "core/app_delegate.h"
#include "core/reopen_requests.h"
#include "events/event_history.h"
#include "events/event_router.h"
#include "events/muting.h"
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
#include "presentation/provider_card.h"
#include "presentation/user_actions.h"
#include "settings/settings_store.h"

namespace chimewell {

/// What a system provides. All of it outlives the services.
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

/// Every object above the ports, made once and wired. This is what the windows are given.
class Services {
public:
    explicit Services(const Ports& ports);
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    const Ports ports;

    SettingsStore store;
    Muting muting;
    SoundPlayer sound;
    VoiceAnnouncer voice;
    AlertAudio audio;
    NotificationService notifications;
    EventHistory history;
    ReminderManager reminders;
    EventRouter router;
    SessionFocus focus;
    HookInstallers installers;
    ProviderCards cards;
    UserActions actions;
    ReopenRequests reopens;
    URLEventHandler urls;
    DormantMarker marker;
    AppDelegate delegate;
};

}
