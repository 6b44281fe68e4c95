// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <vector>

namespace chimewell::test {

/// A notification server that shows nothing, notes what it is asked and does what the test says.
class RecordingNotificationServer : public QDBusVirtualObject {
public:
    struct Banner {
        QString signature; ///< Of the whole call.
        QVariantList arguments;
        QString title;
        QString body;
        QStringList actions;
    };

    /// Takes the servers' name on `bus`, also from another server that allows it.
    explicit RecordingNotificationServer(QDBusConnection bus,
                                         QStringList capabilities = {QStringLiteral("actions"),
                                                                     QStringLiteral("body"),
                                                                     QStringLiteral("body-markup")});
    ~RecordingNotificationServer() override;

    /// From now on calls are noted, but answered by `answerHeld` only.
    void hold() { holding_ = true; }
    void answerHeld();
    void click(uint id, const QString& action = QStringLiteral("default"));
    void close(uint id);
    void sendActivationToken(uint id, const QString& token);

    std::vector<Banner> banners;
    int capabilityQuestions = 0;
    QString software = QStringLiteral("Test"); ///< What it calls itself.

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    void emitSignal(const char* name, const QVariantList& arguments);

    QDBusConnection bus_;
    QStringList capabilities_;
    bool holding_ = false;
    std::vector<QDBusMessage> held_;
};

}
