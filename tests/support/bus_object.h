// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariantList>

#include <utility>
#include <vector>

namespace chimewell::test {

/// Any service on a bus: it notes every call and answers all of them alike.
class BusObject : public QDBusVirtualObject {
public:
    BusObject(QDBusConnection bus, const QString& service, const QString& path, QVariantList itsAnswer = {})
        : answer(std::move(itsAnswer))
    {
        bus.registerVirtualObject(path, this);
        bus.registerService(service);
    }

    QVariantList answer;
    std::vector<QDBusMessage> calls;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override
    {
        calls.push_back(call);
        return connection.send(call.createReply(answer));
    }
};

}
