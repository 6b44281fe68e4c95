// SPDX-License-Identifier: MIT
#include "app/linux/application.h"

#include "settings/application_folder.h"

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
      sounds_(sounds),
      speech_(SsipSpeechSynthesizer::Service::ofSession()),
      workspace_(
          {.folders = folders_, .files = files_, .tokens = tokens_, .bus = bus, .xDisplay = xDisplay()}),
      services_({.files = files_,
                 .clock = clock_,
                 .timers = timers_,
                 .random = random_,
                 .locale = locale_,
                 .sounds = sounds_,
                 .speech = speech_,
                 .notifications = center_,
                 .workspace = workspace_},
                applicationFolder(folders_)),
      signals_([this] { endWithSession(); }),
      trayHost_(bus, [this] {
          icon_.emplace(services_.store, TrayIcon::Actions{.playSample = [this] { services_.playSample(); },
                                                           .quit = [this] { quitByUser(); }});
      })
{
    seat.setHandlers({.open = [this](const auto& url) { services_.urls.handleURLEvent(url); },
                      .activate = [] {}, // nothing to show yet
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
            [this] { services_.delegate.applicationWillTerminate(quitReason_); });

    services_.delegate.applicationDidFinishLaunching();
}

void Application::act(const std::string& action)
{
    if (action == "sample") services_.playSample();
    if (action == "mute") services_.setMuted(true);
    if (action == "unmute") services_.setMuted(false);
    if (action == "quit") quitByUser();
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
