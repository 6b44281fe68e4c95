// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/current_desktop.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace chimewell {

CurrentDesktop currentDesktop()
{
    for (const QString& name : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':')) {
        if (name == u"GNOME") return CurrentDesktop::gnome;
        if (name == u"KDE") return CurrentDesktop::plasma;
        if (name == u"XFCE") return CurrentDesktop::xfce;
    }
    return CurrentDesktop::other;
}

}
