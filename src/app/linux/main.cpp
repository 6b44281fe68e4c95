// SPDX-License-Identifier: MIT
#include "app/linux/application.h"
#include "platform/linux/session/display_check.h"
#include "platform/linux/session/freedesktop_application.h"
#include "ui/look/symbol.h"
#include "ui/look/words.h"
#include "values/shared_names.h"

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

/// Hands the URLs to the running instance. Returns the exit status of this process.
int handOverAndExit(const QDBusConnection& bus, const QStringList& urls)
{
    return requestOpen(bus, urls) ? 0 : fail("no session bus, or nobody answers on it");
}

/// Launchers without D-Bus activation run the program with the URL as an argument, and some wait until it
/// exits. So this process only forwards the URLs and never becomes the application.
int forward(int& argc, char** argv)
{
    const QCoreApplication qt(argc, argv);
    return handOverAndExit(QDBusConnection::sessionBus(), QCoreApplication::arguments().mid(1));
}

/// Makes the write that raises the signal fail instead of killing the process. An empty handler rather than
/// SIG_IGN, because child processes would inherit that.
void handleAndIgnore(int signal)
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

int run(int& argc, char** argv)
{
    handleAndIgnore(SIGPIPE);
    handleAndIgnore(SIGXFSZ);
    if (!canOpenDisplay()) return fail("no display can be opened");
    QApplication qt(argc, argv);
    const QtTranslator translator(Wording::linuxDesktop,
                                  installTranslation(qt, QLocale::system().uiLanguages()));
    // Not the display name: Qt appends that to every window's title.
    QCoreApplication::setApplicationName(QStringLiteral("Chimewell"));
    QGuiApplication::setWindowIcon(themedIcon(QString::fromLatin1(applicationId), applicationId));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(applicationId));
    QGuiApplication::setQuitOnLastWindowClosed(false);

    const QDBusConnection bus = QDBusConnection::sessionBus();
    FreedesktopApplication host(bus);
    if (!host.acquireName()) return handOverAndExit(bus, {});
    const std::filesystem::path here = QCoreApplication::applicationDirPath().toStdString();
    const Application application(bus, host, translator,
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
