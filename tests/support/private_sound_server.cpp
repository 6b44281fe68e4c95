// SPDX-License-Identifier: MIT
#include "support/private_sound_server.h"

#include "support/wait_until.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

#include <csignal>

namespace chimewell::test {

PrivateSoundServer::PrivateSoundServer()
    : address_("PULSE_SERVER", "unix:" + (folder_.path() / "pulse.sock").string())
{
    for (const char* tool : {"pulseaudio", "pactl", "parec"}) {
        if (!QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty()) continue;
        unavailable_ = std::string(tool) + " is not installed";
        return;
    }
    start();
}

void PrivateSoundServer::kill()
{
    server_->raise(SIGKILL);
    server_.reset();
    QFile::remove(socket());
}

void PrivateSoundServer::start()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString folder = QString::fromStdString(folder_.path().string());
    for (const char* variable : {"HOME", "XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
        environment.insert(QString::fromLatin1(variable), folder);
    environment.remove(QStringLiteral("PULSE_SERVER"));
    // Without norewinds the device works in blocks of two seconds, and what is stopped leaves no trace in it.
    const QStringList arguments{
        QStringLiteral("-n"),
        QStringLiteral("--daemonize=no"),
        QStringLiteral("--exit-idle-time=-1"),
        QStringLiteral("--use-pid-file=no"),
        QStringLiteral("--system=no"),
        QStringLiteral("--log-target=file:") + folder + QStringLiteral("/pulse.log"),
        QStringLiteral("--load=module-null-sink sink_name=silent rate=48000 channels=2 norewinds=1"),
        QStringLiteral("--load=module-native-protocol-unix auth-anonymous=1 socket=") + socket()};
    server_ = std::make_unique<ChildProcess>(QStringLiteral("pulseaudio"), arguments, environment);
    if (!waitUntil([this] { return control({QStringLiteral("info")}).contains("silent"); }))
        unavailable_ = "pulseaudio did not start";
}

int PrivateSoundServer::streams() const
{
    return static_cast<int>(
        control({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sink-inputs")})
            .count('\n'));
}

QString PrivateSoundServer::socket() const
{
    return QString::fromStdString((folder_.path() / "pulse.sock").string());
}

QByteArray PrivateSoundServer::control(const QStringList& arguments) const
{
    QProcess process;
    process.start(QStringLiteral("pactl"), arguments);
    process.waitForFinished(5000);
    return process.readAllStandardOutput();
}

}
