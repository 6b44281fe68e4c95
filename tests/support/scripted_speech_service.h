// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QLocalSocket>
#include <QObject>
#include <QString>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {

/// Answers like a speech service, or as badly as a test wants it, and says nothing aloud.
class ScriptedSpeechService {
public:
    explicit ScriptedSpeechService(const std::filesystem::path& socket)
    {
        QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { accept(); });
        server_.listen(QString::fromStdString(socket.string()));
    }

    struct Spoken {
        std::string text; ///< As it came, line breaks and dots included.
        std::string voice;
    };
    std::vector<Spoken> spoken;
    std::vector<std::string> commands; ///< Of all connections, texts excluded.
    bool answers = true;
    bool endsAtOnce = false; ///< Even before it tells the number of what ended.

    /// What is spoken comes to its end, as the service tells it: 702, or 703.
    void end(int event = 702)
    {
        const QByteArray code = QByteArray::number(event);
        socket_->write(code + '-' + QByteArray::number(spoken_) + "\r\n" + code + "-1\r\n" + code +
                       " OVER\r\n");
    }

private:
    void accept()
    {
        socket_ = server_.nextPendingConnection();
        voice_.clear();
        QObject::connect(socket_, &QLocalSocket::readyRead, &server_, [this] {
            while (socket_->canReadLine())
                handleLine(socket_->readLine().toStdString());
        });
    }

    void handleLine(const std::string& line)
    {
        if (!answers) return;
        if (sendsText_) {
            text_ += line;
            if (line == ".\r\n") takeText();
            return;
        }
        const std::string command = line.substr(0, line.find('\r'));
        commands.push_back(command);
        // A variant, and rows of which parts are missing, are not voices.
        const char* const voiceRows =
            "249-English (America)\ten-US\tnone\r\n249-German\tde\tnone\r\n249-German+Andrea\tde\tAndrea\r\n"
            "249-C++\ten_GB\r\n249-\tde\tnone\r\n249-x\t\tnone\r\n249-\r\n249 OK VOICE LIST SENT\r\n";
        const std::string setVoice = "SET self SYNTHESIS_VOICE ";
        if (command.starts_with(setVoice)) voice_ = command.substr(setVoice.size());
        sendsText_ = command == "SPEAK";
        socket_->write(sendsText_                           ? "230 OK RECEIVING DATA\r\n"
                       : command == "LIST SYNTHESIS_VOICES" ? voiceRows
                                                            : "209 OK SET\r\n");
    }

    void takeText()
    {
        spoken.push_back({.text = std::exchange(text_, {}), .voice = voice_});
        sendsText_ = false;
        ++spoken_;
        if (endsAtOnce) end();
        socket_->write("225-" + QByteArray::number(spoken_) + "\r\n225 OK MESSAGE QUEUED\r\n");
    }

    QLocalServer server_;
    QLocalSocket* socket_ = nullptr; // the newest
    std::string voice_;
    std::string text_;
    bool sendsText_ = false;
    int spoken_ = 0;
};

}
