// SPDX-License-Identifier: MIT
#include "support/private_speech_service.h"

#include "support/wait_until.h"

#include <QStandardPaths>
#include <QString>
#include <QStringList>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace chimewell::test {
namespace {

constexpr const char* pidFile = "speech-dispatcher/pid/speech-dispatcher.pid";

}

PrivateSpeechService::PrivateSpeechService()
    : runtimeFolder_("XDG_RUNTIME_DIR", folder_.path()),
      home_("HOME", folder_.path()),
      socket_(folder_.path() / "speech-dispatcher" / "speechd.sock")
{
    for (const char* tool : {"speech-dispatcher", "espeak-ng"})
        if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
            unavailable_ = std::string(tool) + " is not installed";
    // One engine, so that no other is loaded and none can take its place.
    folder_.write(".config/speech-dispatcher/speechd.conf", "LogLevel 1\n"
                                                            "LogDir \"default\"\n"
                                                            "AudioOutputMethod \"pulse\"\n"
                                                            "DefaultLanguage \"en-US\"\n"
                                                            "AddModule \"espeak-ng\" \"sd_espeak-ng\" \"\"\n"
                                                            "DefaultModule espeak-ng\n");
}

PrivateSpeechService::~PrivateSpeechService()
{
    if (!isRunning()) return;
    kill();
}

void PrivateSpeechService::start()
{
    // What it prints for each of its thousands of voices is of no interest.
    const QStringList arguments{QStringLiteral("-c"),
                                QStringLiteral("exec speech-dispatcher --run-single -t 0 >/dev/null 2>&1")};
    service_ = std::make_unique<ChildProcess>(QStringLiteral("sh"), arguments);
    if (!waitUntil([this] { return std::filesystem::exists(socket_); }))
        unavailable_ = "speech-dispatcher did not start";
}

void PrivateSpeechService::kill()
{
    const int pid = std::atoi(folder_.read(pidFile).c_str());
    if (pid > 0) ::kill(pid, SIGKILL);
    service_.reset();
    waitUntil([this] { return !isRunning(); });
    std::error_code ignored;
    std::filesystem::remove(socket_, ignored);
    std::filesystem::remove(folder_.path() / pidFile, ignored);
}

bool PrivateSpeechService::isRunning() const
{
    const int pid = std::atoi(folder_.read(pidFile).c_str());
    return pid > 0 && ::kill(pid, 0) == 0;
}

}
