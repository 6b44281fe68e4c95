// SPDX-License-Identifier: MIT
#include "app/macos/application.h"
#include "platform/posix/posix_clock.h"
#include "ui/look/words.h"

#include <QApplication>
#include <QLocale>

int main(int argc, char** argv)
{
    using namespace chimewell;
    // Otherwise Qt takes the keyboard focus when an agent's event starts the application.
    qputenv("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM", "1");
    QApplication qt(argc, argv);
    const QtTranslator translator(Wording::macOS, installTranslation(qt, QLocale::system().uiLanguages()));
    // Not the display name: Qt appends that to every window's title.
    QCoreApplication::setApplicationName(QStringLiteral("Chimewell"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const PosixClock clock;
    const Application application(translator, clock);
    return QApplication::exec();
}
