// SPDX-License-Identifier: MIT
#include "support/scripted_speech_service.h"

#include <QObject>
#include <QString>

#include <string_view>

namespace chimewell::test {

ScriptedSpeechService::ScriptedSpeechService(const std::filesystem::path& socket)
{
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { accept(); });
    server_.listen(QString::fromStdString(socket.string()));
}

void ScriptedSpeechService::end(int event)
{
    const Running ended = running_.front();
    running_.pop_front();
    const QByteArray code = QByteArray::number(event);
    ended.client->socket->write(code + '-' + QByteArray::number(ended.message) + "\r\n" + code + "-1\r\n" +
                                code + " OVER\r\n");
}

void ScriptedSpeechService::disconnectAll()
{
    for (const Client& client : clients_)
        client.socket->abort();
    running_.clear();
}

void ScriptedSpeechService::accept()
{
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        Client& client = clients_.emplace_back(Client{.socket = socket, .voice = {}, .text = {}});
        socket->write(firstWords);
        QObject::connect(socket, &QLocalSocket::readyRead, &server_, [this, &client] {
            while (client.socket->canReadLine())
                handleLine(client, client.socket->readLine().toStdString());
        });
    }
}

void ScriptedSpeechService::handleLine(Client& client, const std::string& line)
{
    if (!answers) return;
    if (client.sendsText) {
        client.text += line;
        if (line == ".\r\n") takeText(client);
        return;
    }
    const std::string command = line.substr(0, line.find('\r'));
    commands.push_back(command);
    constexpr std::string_view setVoice = "SET self SYNTHESIS_VOICE ";
    if (command == "SPEAK") {
        client.sendsText = true;
        client.socket->write("230 OK RECEIVING DATA\r\n");
    } else if (command == "LIST SYNTHESIS_VOICES") {
        client.socket->write(voiceRows + "249 OK VOICE LIST SENT\r\n");
    } else {
        if (command.starts_with(setVoice)) client.voice = command.substr(setVoice.size());
        client.socket->write("209 OK SET\r\n");
    }
}

void ScriptedSpeechService::takeText(Client& client)
{
    spoken.push_back({.text = client.text, .voice = client.voice});
    client.text.clear();
    client.sendsText = false;
    running_.push_back({.client = &client, .message = ++messages_});
    if (endsAtOnce) end();
    client.socket->write("225-" + QByteArray::number(messages_) + "\r\n225 OK MESSAGE QUEUED\r\n");
}

}
