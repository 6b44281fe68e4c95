// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/path_inspector.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace chimewell {

namespace {

constexpr std::chrono::seconds timeout{1};

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

void PathInspector::findKind(const std::filesystem::path& path, std::function<void(FileKind)> done)
{
    // It belongs to nobody, as its destructor would wait for a child that even SIGKILL may not reach.
    auto* process = new QProcess;
    QObject::connect(process, &QProcess::stateChanged, process, [process](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning) process->deleteLater();
    });
    QObject::connect(process, &QProcess::finished, &context_, [process, done = std::move(done)] {
        if (const auto kind = kindOf(process->readAllStandardOutput())) done(*kind);
    });
    QTimer::singleShot(timeout, process, &QProcess::kill);
    // QProcess itself knows only arguments that are text.
    process->setChildProcessModifier([path] {
        ::execlp("stat", "stat", "-L", "-c", "%f", "--", path.c_str(), nullptr);
        ::_exit(EXIT_FAILURE);
    });
    process->start(QStringLiteral("/")); // which the child never gets to
}

}
