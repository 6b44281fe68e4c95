// SPDX-License-Identifier: MIT
#include "platform/linux/speech/ssip_speech_synthesizer.h"

#include <QStandardPaths>
#include <QStringList>
#include <QtGlobal>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string_view>
#include <utility>

namespace chimewell {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t maxWaiting = 20;
constexpr std::size_t maxVoices = 4096;
constexpr auto launchTimeout = 10s;
/// A service that does not work is not started for every alert.
constexpr auto launchPause = 10s;
/// An unused connection would keep a service that was started for us alive.
constexpr auto idleTimeout = 60s;

/// No voice takes longer for a text of that many bytes, including the time while other programs speak first.
std::chrono::milliseconds longestUtterance(std::size_t bytes)
{
    return 30s + bytes * 200ms;
}

void ignoreReply(const SsipLine&) {}

}

SsipSpeechSynthesizer::Service SsipSpeechSynthesizer::Service::ofSession()
{
    const QString program = QStringLiteral("speech-dispatcher");
    constexpr std::string_view localPrefix = "unix_socket:";
    const std::string address = qgetenv("SPEECHD_ADDRESS").toStdString();
    if (address.starts_with(localPrefix))
        return {.socket = address.substr(localPrefix.size()), .program = program};
    std::string folder = qgetenv("XDG_RUNTIME_DIR").toStdString();
    if (folder.empty())
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation).toStdString();
    return {.socket = std::filesystem::path(folder) / "speech-dispatcher" / "speechd.sock",
            .program = program};
}

SsipSpeechSynthesizer::SsipSpeechSynthesizer(Service service, std::string language)
    : service_(std::move(service)),
      language_(std::move(language)),
      connection_({.onEvent =
                       [this](int code, const std::string& message) {
                           if (code == ssipEndEvent || code == ssipCancelEvent) messageEnded(message);
                       },
                   .onFailed = [this] { giveUp(); }})
{
    timeout_.setSingleShot(true);
    QObject::connect(&timeout_, &QTimer::timeout, &later_, [this] { handleTimeout(); });
    launcher_.setProgram(service_.program);
    launcher_.setArguments({QStringLiteral("--spawn")});
    // The service may outlive us, so it must not hold our pipes.
    launcher_.setStandardInputFile(QProcess::nullDevice());
    launcher_.setStandardOutputFile(QProcess::nullDevice());
    launcher_.setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(&launcher_, &QProcess::finished, &later_, [this] { launched(); });
    QObject::connect(&launcher_, &QProcess::errorOccurred, &later_, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) launched();
    });
}

SsipSpeechSynthesizer::~SsipSpeechSynthesizer()
{
    if (launcher_.state() == QProcess::NotRunning) return;
    launcher_.disconnect(); // its handlers use this object
    launcher_.kill();
    launcher_.waitForFinished(-1); // a killed process ends at once
}

void SsipSpeechSynthesizer::speak(const std::string& text, const std::optional<std::string>& voiceIdentifier)
{
    if (queue_.size() == maxWaiting) queue_.pop_front();
    queue_.push_back({.text = text, .voice = voiceIdentifier});
    proceed();
}

void SsipSpeechSynthesizer::listVoices(std::function<void(std::vector<Voice>)> done)
{
    awaitingVoices_.push_back(std::move(done));
    proceed();
}

void SsipSpeechSynthesizer::proceed()
{
    if (!connection_.isOpen() && (!queue_.empty() || !awaitingVoices_.empty())) connectOrLaunch();
    if (connection_.isOpen()) {
        // Listing takes a while, so it begins before the utterance's turn comes.
        const bool hasVoiceToCheck = !voices_ && std::ranges::any_of(queue_, [](const Utterance& each) {
            return each.voice.has_value();
        });
        if (!awaitingVoices_.empty() || hasVoiceToCheck) requestVoices();
        speakNext();
    }
    startIdleTimeout();
}

void SsipSpeechSynthesizer::connectOrLaunch()
{
    if (launcher_.state() != QProcess::NotRunning || connect()) return;
    if (!nextLaunch_.hasExpired()) return giveUp();
    nextLaunch_.setRemainingTime(launchPause);
    timeout_.start(launchTimeout);
    launcher_.start();
}

bool SsipSpeechSynthesizer::connect()
{
    if (!connection_.open(service_.socket)) return false;
    voice_.clear();
    lastEnded_.clear();
    connection_.send("SET self CLIENT_NAME user:chimewell:alerts", ignoreReply);
    // Messages of this priority wait for each other; others would cut each other short.
    connection_.send("SET self PRIORITY MESSAGE", ignoreReply);
    connection_.send("SET self LANGUAGE " + language_, ignoreReply);
    connection_.send("SET self NOTIFICATION END ON", ignoreReply);
    connection_.send("SET self NOTIFICATION CANCEL ON", ignoreReply);
    return true;
}

void SsipSpeechSynthesizer::launched()
{
    if (!connection_.isOpen() && !connect()) giveUp();
    proceed();
}

void SsipSpeechSynthesizer::requestVoices()
{
    if (std::exchange(isListing_, true)) return;
    const auto voices = std::make_shared<std::vector<Voice>>();
    connection_.send("LIST SYNTHESIS_VOICES", [this, voices](const SsipLine& line) {
        if (!line.isLast) {
            if (voices->size() == maxVoices) return;
            if (std::optional<Voice> voice = parseVoiceRow(line.text)) voices->push_back(*std::move(voice));
            return;
        }
        isListing_ = false;
        voices_ = std::move(*voices);
        deliver(*voices_);
        proceed();
    });
}

void SsipSpeechSynthesizer::deliver(const std::vector<Voice>& voices)
{
    for (auto& done : std::exchange(awaitingVoices_, {}))
        QTimer::singleShot(0, &later_, [done = std::move(done), voices] { done(voices); });
}

void SsipSpeechSynthesizer::speakNext()
{
    if (isSpeaking_ || queue_.empty()) return;
    const std::optional<std::string>& requested = queue_.front().voice;
    if (requested && !voices_) return; // they are being listed

    // The service accepts any name, and speaks with a voice of its own choice if it does not know it.
    std::string voice;
    if (requested && std::ranges::find(*voices_, *requested, &Voice::identifier) != voices_->end())
        voice = *requested;
    if (voice.empty() && !voice_.empty()) {
        // No command returns to the service's default voice. Only a new connection does.
        if (isListing_) return;
        connection_.close();
        if (!connect()) return giveUp();
    } else if (voice != voice_) {
        connection_.send("SET self SYNTHESIS_VOICE " + voice, ignoreReply);
        voice_ = voice;
    }

    isSpeaking_ = true;
    timeout_.start(longestUtterance(queue_.front().text.size()));
    connection_.send("SPEAK", [this, text = std::move(queue_.front().text)](const SsipLine& line) {
        if (!line.isLast) return;
        if (line.code == ssipAwaitingText)
            connection_.sendText(text, [this](const SsipLine& reply) { textTaken(reply); });
        else
            finishUtterance();
    });
    queue_.pop_front();
}

void SsipSpeechSynthesizer::textTaken(const SsipLine& line)
{
    if (!line.isLast) {
        message_ = line.text;
        return;
    }
    // The event for the end may arrive before the number of the message.
    if (!line.isSuccess() || (!message_.empty() && message_ == lastEnded_)) finishUtterance();
}

void SsipSpeechSynthesizer::messageEnded(const std::string& message)
{
    if (isSpeaking_ && message == message_)
        finishUtterance();
    else
        lastEnded_ = message;
}

void SsipSpeechSynthesizer::finishUtterance()
{
    isSpeaking_ = false;
    message_.clear();
    proceed();
}

void SsipSpeechSynthesizer::giveUp()
{
    connection_.close();
    queue_.clear();
    voices_.reset();
    isListing_ = false;
    isSpeaking_ = false;
    message_.clear();
    deliver({});
    startIdleTimeout();
}

void SsipSpeechSynthesizer::startIdleTimeout()
{
    if (launcher_.state() != QProcess::NotRunning || isSpeaking_) return;
    if (connection_.isOpen())
        timeout_.start(idleTimeout);
    else
        timeout_.stop();
}

void SsipSpeechSynthesizer::handleTimeout()
{
    if (launcher_.state() != QProcess::NotRunning)
        launcher_.kill(); // which calls launched()
    else if (isSpeaking_)
        finishUtterance(); // the service did not report its end; it queues what it still has to say
    else
        connection_.close();
}

}
