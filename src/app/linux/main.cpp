// SPDX-License-Identifier: MIT
#include "app/linux/application.h"
#include "platform/linux/session/display_check.h"
#include "platform/linux/session/freedesktop_application.h"
#include "platform/linux/session/running_instance.h"
#include "ui/look/symbol.h"
#include "ui/look/words.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QLocale>
#include <QStringList>

#include <csignal>
#include <cstdio>
#include <filesystem>

namespace {

using namespace chimewell;

int fail(const char* reason)
{
    std::fprintf(stderr, "chimewell: %s\n", reason);
    return 1;
}

/// Ends this start of the program; the running instance takes it over.
int leaveTo(const QDBusConnection& bus, const QStringList& urls)
{
    return handOver(bus, urls) ? 0 : fail("no session bus, or nobody answers on it");
}

/// Launchers that know nothing of D-Bus activation run us with the URL as an argument, and some wait for our
/// end: so this process never becomes the application.
int forward(int& argc, char** argv)
{
    const QCoreApplication qt(argc, argv);
    return leaveTo(QDBusConnection::sessionBus(), QCoreApplication::arguments().mid(1));
}

/// A write that cannot be done then fails instead of ending us. Unlike an ignored signal, a handler is not
/// inherited by the programs that we start.
void survive(int signal)
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

int run(int& argc, char** argv)
{
    survive(SIGPIPE);
    survive(SIGXFSZ);
    if (!canOpenDisplay()) return fail("no display can be opened");
    QApplication qt(argc, argv);
    const QtTranslator translator(Wording::linuxDesktop,
                                  installTranslation(qt, QLocale::system().uiLanguages()));
    // Not as the display name, which Qt appends to every window's title.
    QCoreApplication::setApplicationName(QStringLiteral("Chimewell"));
    QGuiApplication::setWindowIcon(
        themedIcon(QStringLiteral("app.chimewell.Chimewell"), "app.chimewell.Chimewell"));
    QGuiApplication::setDesktopFileName(QStringLiteral("app.chimewell.Chimewell"));
    QGuiApplication::setQuitOnLastWindowClosed(false);

    const QDBusConnection bus = QDBusConnection::sessionBus();
    FreedesktopApplication seat(bus);
    if (!seat.claim()) return leaveTo(bus, {});
    const std::filesystem::path here = QCoreApplication::applicationDirPath().toStdString();
    const Application application(bus, seat, translator,
                                  {.program = QCoreApplication::applicationFilePath().toStdString(),
                                   .sounds = here / CHIMEWELL_SOUNDS_FOLDER,
                                   .programs = here / CHIMEWELL_PROGRAMS_FOLDER});
    return QApplication::exec();
}

}

int main(int argc, char** argv)
{
    return argc > 1 ? forward(argc, argv) : run(argc, argv);
}
