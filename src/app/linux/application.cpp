// SPDX-License-Identifier: MIT
#include "app/linux/application.h"

#include "settings/application_folder.h"
#include "values/event_url.h"

#include <QApplication>
#include <QSessionManager>

namespace chimewell {

namespace {

/// An X display that only shows windows inside a Wayland session is none: its clients cannot raise others.
std::optional<std::string> xDisplay()
{
    if (QGuiApplication::platformName() != QStringLiteral("xcb")) return std::nullopt;
    return qEnvironmentVariable("DISPLAY").toStdString();
}

}

Application::Application(const QDBusConnection& bus, FreedesktopApplication& seat,
                         const std::filesystem::path& sounds)
    : locale_(IcuUserLocale::Names::fromEnvironment()),
      center_(bus, timers_, tokens_),
      systemSounds_(sounds),
      speech_(SsipSpeechSynthesizer::Service::ofSession()),
      workspace_(
          {.folders = folders_, .files = files_, .tokens = tokens_, .bus = bus, .xDisplay = xDisplay()}),
      store_(files_, applicationFolder(folders_)),
      sound_(systemSounds_),
      notifications_(center_, random_),
      voice_(speech_, locale_),
      history_(clock_, random_),
      reminders_({.store = store_, .clock = clock_, .timers = timers_, .random = random_}),
      router_({.store = store_,
               .history = history_,
               .sound = sound_,
               .notifications = notifications_,
               .voice = voice_,
               .reminders = reminders_,
               .clock = clock_}),
      focus_(workspace_, files_),
      urls_(router_),
      marker_(files_, clock_, store_.folder()),
      delegate_({.urls = urls_, .notifications = notifications_, .marker = marker_, .timers = timers_}),
      signals_([this] { endWithSession(); }),
      trayHost_(bus, [this] {
          icon_.emplace(store_, TrayIcon::Actions{.playSample = [this] { playSample(); },
                                                  .quit = [this] { quitByUser(); }});
      })
{
    reminders_.onFire = [this](const EventPayload& payload) { router_.fireReminder(payload); };
    notifications_.onOpenSession = [this](const auto& term, const auto& cwd) {
        focus_.focusSession(term, cwd);
    };
    seat.setHandlers({.open = [this](const auto& url) { urls_.handleURLEvent(url); },
                      .activate = [] {},
                      .action = [this](const std::string& action) { act(action); }});

    QDBusConnection(bus).connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
                                 QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                                 this, SLOT(endWithSession()));
    // Starting at log-in is the autostart entry's business, not the session manager's.
    connect(
        qApp, &QGuiApplication::commitDataRequest, this,
        [](QSessionManager& session) { session.setRestartHint(QSessionManager::RestartNever); },
        Qt::DirectConnection);
    connect(qApp, &QCoreApplication::aboutToQuit, this,
            [this] { delegate_.applicationWillTerminate(quitReason_); });

    delegate_.applicationDidFinishLaunching();
}

void Application::act(const std::string& action)
{
    if (action == "sample") playSample();
    if (action == "mute") setMuted(true);
    if (action == "unmute") setMuted(false);
    if (action == "quit") quitByUser();
}

void Application::setMuted(bool muted)
{
    store_.update([&](AppSettings& settings) { settings.globalMuted = muted; });
}

void Application::playSample()
{
    if (const auto payload = parseEventUrl(sampleEventUrl(random_.uuid()))) router_.handle(*payload);
}

void Application::quitByUser()
{
    quitReason_ = QuitReason::user;
    QCoreApplication::quit();
}

void Application::endWithSession()
{
    QCoreApplication::quit();
}

}
