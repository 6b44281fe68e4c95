// SPDX-License-Identifier: MIT
#include "support/private_display.h"

#include "support/wait_until.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace chimewell::test {

PrivateDisplay::PrivateDisplay(WindowManager manager)
{
    for (const char* tool : {"Xvfb", "openbox", "xprop"}) {
        if (!QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty()) continue;
        unavailable_ = std::string(tool) + " is not installed";
        return;
    }
    // It chooses a free number itself and prints it once clients can connect.
    server_ = std::make_unique<ChildProcess>(QStringLiteral("Xvfb"),
                                             QStringList{QStringLiteral("-displayfd"), QStringLiteral("1"),
                                                         QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                                                         QStringLiteral("-noreset")});
    const QByteArray number = server_->readLine();
    if (number.isEmpty()) {
        unavailable_ = "Xvfb did not start";
        return;
    }
    name_ = QLatin1Char(':') + QString::fromLatin1(number);
    if (manager == WindowManager::none) return;
    manager_ = std::make_unique<ChildProcess>(QStringLiteral("openbox"),
                                              QStringList{QStringLiteral("--sm-disable")}, environment());
    if (!waitUntil([this] { return managerIsReady(); })) unavailable_ = "openbox did not start";
}

QProcessEnvironment PrivateDisplay::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), name_);
    return environment;
}

QString PrivateDisplay::output(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(environment());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished(10000);
    return QString::fromLocal8Bit(process.readAll());
}

bool PrivateDisplay::managerIsReady() const
{
    return output(QStringLiteral("xprop"),
                  {QStringLiteral("-root"), QStringLiteral("_NET_SUPPORTING_WM_CHECK")})
        .contains(QStringLiteral("window id"));
}

}
