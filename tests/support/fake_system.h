// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "support/english_translator.h"
#include "support/fake_time.h"
#include "support/fixed_home.h"
#include "support/fixed_random.h"
#include "support/memory_files.h"
#include "support/one_resource.h"
#include "support/plain_locale.h"
#include "support/recording_activation.h"
#include "support/recording_login_item.h"
#include "support/recording_notification_center.h"
#include "support/recording_sounds.h"
#include "support/recording_speech.h"
#include "support/recording_workspace.h"

namespace chimewell::test {

/// A system of fakes for the services to run on.
struct FakeSystem {
    FakeTime time;
    MemoryFiles files;
    FixedRandom random;
    PlainLocale locale;
    EnglishTranslator translator;
    FixedHome home;
    OneResource resources;
    RecordingSounds sounds;
    RecordingSpeech speech;
    RecordingNotificationCenter center;
    RecordingWorkspace workspace;
    RecordingLoginItem loginItem;
    RecordingActivation activation;

    Ports ports() { return ports(translator); }
    Ports ports(const Translator& words)
    {
        return {.files = files,
                .clock = time,
                .timers = time,
                .random = random,
                .locale = locale,
                .translator = words,
                .folders = home,
                .resources = resources,
                .sounds = sounds,
                .speech = speech,
                .notifications = center,
                .workspace = workspace,
                .loginItem = loginItem,
                .activation = activation};
    }
};

}
