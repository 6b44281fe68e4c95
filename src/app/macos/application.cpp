// SPDX-License-Identifier: MIT
#include "app/macos/application.h"

#include "platform/macos/status_item.h"
#include "platform/macos/system_symbols.h"
#include "platform/posix/temporary_file.h"
#include "ui/look/symbol.h"

#include <QApplication>
#include <QEvent>
#include <QFileOpenEvent>
#include <QImage>
#include <QUrl>

#include <memory>

namespace chimewell {

namespace {

/// A symbol as macOS draws it.
QImage systemMask(std::string_view name, int pixels)
{
    const auto mask = systemSymbol(name, pixels);
    if (!mask) return {};
    // Qt aligns rows to four bytes, so a copy with Qt's own rows is made.
    return QImage(mask->alpha.data(), mask->size, mask->size, mask->size, QImage::Format_Alpha8).copy();
}

}

Application::Application(const Translator& translator, const Clock& clock)
    : timers_(clock),
      services_({.files = files_,
                 .clock = clock,
                 .timers = timers_,
                 .random = random_,
                 .locale = locale_,
                 .translator = translator,
                 .folders = folders_,
                 .resources = resources_,
                 .sounds = sounds_,
                 .speech = speech_,
                 .notifications = center_,
                 .workspace = workspace_,
                 .loginItem = loginItem_,
                 .activation = activation_}),
      running_(RunningLock::take(services_.store.folder())),
      interface_(services_, {.palette = UserInterface::Palette::system}),
      events_(
          {.didLaunch = [this] { didLaunch(); },
           .open = [this](const auto& url) { services_.urls.handleURLEvent(url); },
           .reopen = [this] { services_.reopens.request(); },
           .quit =
               [this](bool endsSession) { quit(endsSession ? QuitReason::sessionEnd : QuitReason::user); },
           .didWake = [this] { services_.reopens.explain(ReopenRequests::Cause::wake); }})
{
    services_.actions.onQuit = [this] { quit(QuitReason::user); };
    services_.reopens.onUserReopen = [this] { interface_.activate(); };
    setSymbolSource(systemMask);
    qApp->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this,
            [this] { services_.delegate.applicationWillTerminate(quitReason_); });

    interface_.setIcon(std::make_unique<StatusItem>());
    removeAbandonedFiles(services_.store.folder());
}

void Application::didLaunch()
{
    services_.delegate.applicationDidFinishLaunching();
    interface_.start();
}

void Application::quit(QuitReason reason)
{
    quitReason_ = reason;
    // Not a request to quit, which Qt would put to the system and the system to us.
    QCoreApplication::exit();
}

bool Application::eventFilter(QObject* watched, QEvent* event)
{
    // In case Qt's own handler for URLs replaces ours.
    if (watched == qApp && event->type() == QEvent::FileOpen) {
        const QUrl url = static_cast<QFileOpenEvent*>(event)->url();
        services_.urls.handleURLEvent(url.toString(QUrl::FullyEncoded).toStdString());
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}
