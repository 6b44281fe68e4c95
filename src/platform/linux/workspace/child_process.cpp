// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/child_process.h"

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace chimewell {
namespace {

/// `mode` is st_mode in hexadecimal digits.
std::optional<FileKind> kindOf(const QByteArray& mode)
{
    bool isNumber = false;
    const unsigned int bits = mode.trimmed().toUInt(&isNumber, 16);
    if (!isNumber) return std::nullopt;
    if (S_ISREG(bits)) return FileKind::regular;
    return S_ISDIR(bits) ? FileKind::folder : FileKind::other;
}

}

bool startDetached(const std::vector<std::string>& command, const std::filesystem::path& workingFolder,
                   const std::string& activationToken)
{
    QStringList words;
    for (const std::string& word : command)
        words.append(QString::fromLocal8Bit(word));

    QProcess process;
    process.setProgram(words.takeFirst());
    process.setArguments(words);
    process.setWorkingDirectory(QFile::decodeName(workingFolder.c_str()));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        if (activationToken.empty())
            environment.remove(QLatin1StringView(name));
        else
            environment.insert(QLatin1StringView(name), QString::fromStdString(activationToken));
    }
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

void findKindInChild(const std::filesystem::path& path, QObject* context, std::function<void(FileKind)> done)
{
    // It has no owner, because its destructor would wait for a child that even SIGKILL may not end.
    auto* process = new QProcess;
    QObject::connect(process, &QProcess::stateChanged, process, [process](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning) process->deleteLater();
    });
    QObject::connect(process, &QProcess::finished, context, [process, done = std::move(done)] {
        if (const auto kind = kindOf(process->readAllStandardOutput())) done(*kind);
    });
    QTimer::singleShot(std::chrono::seconds(1), process, &QProcess::kill);
    // QProcess takes only arguments that are text, and a path may be any bytes.
    process->setChildProcessModifier([path] {
        ::execlp("stat", "stat", "-L", "-c", "%f", "--", path.c_str(), nullptr);
        ::_exit(EXIT_FAILURE);
    });
    process->start(QStringLiteral("/")); // never run
}

}
