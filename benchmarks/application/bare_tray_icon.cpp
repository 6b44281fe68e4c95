// SPDX-License-Identifier: MIT
// The least that Qt offers of what the application is while nothing happens: an icon with a menu.
#include <QApplication>
#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>

int main(int argc, char** argv)
{
    const QApplication qt(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QMenu menu;
    menu.addAction(QStringLiteral("Quit"), qApp, [] { QCoreApplication::quit(); });
    QSystemTrayIcon icon(QIcon::fromTheme(QStringLiteral("chimewell-symbolic")));
    icon.setContextMenu(&menu);
    icon.show();
    return QApplication::exec();
}
