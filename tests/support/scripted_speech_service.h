// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QLocalSocket>

#include <deque>
#include <filesystem>
#include <string>
#include <vector>

namespace chimewell::test {

/// Answers like a speech service, or as badly as a test wants it, and says nothing aloud.
class ScriptedSpeechService {
public:
    explicit ScriptedSpeechService(const std::filesystem::path& socket);

    struct Spoken {
        std::string text; ///< As it came, line breaks and dots included.
        std::string voice;
        bool operator==(const Spoken&) const = default;
    };
    std::vector<Spoken> spoken;
    std::vector<std::string> commands; ///< Of all connections, texts excluded.
    QByteArray voiceRows = "249-German\tde\tnone\r\n249-German+Andrea\tde\tAndrea\r\n";
    bool answers = true;
    bool endsAtOnce = false; ///< Even before it tells the number of what ended.
    QByteArray firstWords;   ///< Said to everyone who connects.

    /// The oldest utterance that still is spoken comes to its end, as the service tells it: 702, or 703.
    void end(int event = 702);
    int connections() const { return static_cast<int>(clients_.size()); }
    void disconnectAll();

private:
    struct Client {
        QLocalSocket* socket;
        std::string voice;
        std::string text;
        bool sendsText = false;
    };

    void accept();
    void handleLine(Client& client, const std::string& line);
    void takeText(Client& client);

    QLocalServer server_;
    std::deque<Client> clients_; // also those that are gone
    struct Running {
        Client* client;
        int message;
    };
    std::deque<Running> running_;
    int messages_ = 0;
};

}
