// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/speech/ssip_connection.h"
#include "ports/speech_synthesizer.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QTimer>

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chimewell {

/// Speaks through Speech Dispatcher, which is started when it does not run. The voices are those of its
/// default engine; a voice's identifier is its name.
///
/// The service is given one utterance at a time. Up to twenty wait here; beyond that the oldest is dropped,
/// because the newest alert matters most. They are also dropped when the service cannot be reached, dies or
/// hangs; the next utterance tries again.
class SsipSpeechSynthesizer : public SpeechSynthesizer {
public:
    struct Service {
        std::filesystem::path socket;
        QString program; ///< Starts the service when called with `--spawn`.

        /// The service of this session: SPEECHD_ADDRESS when that names a local socket, else the default.
        static Service ofSession();
    };

    /// `language` is what texts are written in, as a BCP 47 tag: where no voice is asked for, the service
    /// chooses one that speaks it.
    SsipSpeechSynthesizer(Service service, std::string language);
    ~SsipSpeechSynthesizer() override;

    void speak(const std::string& text, const std::optional<std::string>& voiceIdentifier) override;
    /// `done` always runs later, from the event loop.
    void listVoices(std::function<void(std::vector<Voice>)> done) override;

private:
    struct Utterance {
        std::string text;
        std::optional<std::string> voice;
    };

    void proceed();
    void connectOrLaunch();
    bool connect();
    /// The launcher exited, or could not be started.
    void launched();
    void requestVoices();
    void deliver(const std::vector<Voice>& voices);
    void speakNext();
    void textTaken(const SsipLine& line);
    void messageEnded(const std::string& message);
    void finishUtterance();
    void giveUp();
    void startIdleTimeout();
    void handleTimeout();

    Service service_;
    std::string language_;
    SsipConnection connection_;
    std::string voice_;                        // of this connection; empty: the service's default
    std::optional<std::vector<Voice>> voices_; // of the service; absent until it was asked
    bool isListing_ = false;
    std::vector<std::function<void(std::vector<Voice>)>> awaitingVoices_;
    std::deque<Utterance> queue_;
    bool isSpeaking_ = false;
    std::string message_;   // the service's number of the utterance that is spoken; empty until known
    std::string lastEnded_; // the service's number of the last one that ended before its number was known
    QProcess launcher_;
    QDeadlineTimer nextLaunch_;
    QTimer timeout_; // for the launcher, for an utterance, or for an unused connection
    QObject later_;  // context of the callbacks that run later
};

}
