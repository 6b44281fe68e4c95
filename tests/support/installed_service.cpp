// SPDX-License-Identifier: MIT
#include "support/installed_service.h"

#include <QFile>
#include <QRegularExpression>

namespace chimewell::test {

QString installedService(const QString& file)
{
    QFile service(QStringLiteral("/usr/share/dbus-1/services/") + file);
    if (!service.open(QIODevice::ReadOnly)) return {};
    static const QRegularExpression command(QStringLiteral("^Exec=(\\S+)"),
                                            QRegularExpression::MultilineOption);
    const QString program = command.match(QString::fromUtf8(service.readAll())).captured(1);
    return QFile::exists(program) ? program : QString();
}

}
