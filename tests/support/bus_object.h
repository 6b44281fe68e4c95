// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariantList>

#include <utility>
#include <vector>

namespace chimewell::test {

/// Any service on a bus, at the place of the one that there is: it notes every call and answers all of them
/// alike.
class BusObject : public QDBusVirtualObject {
public:
    BusObject(QDBusConnection bus, QString service, QString path, QVariantList itsAnswer = {})
        : answer(std::move(itsAnswer)),
          bus_(std::move(bus)),
          service_(std::move(service)),
          path_(std::move(path))
    {
        bus_.registerVirtualObject(path_, this);
        bus_.interface()->registerService(service_, QDBusConnectionInterface::ReplaceExistingService,
                                          QDBusConnectionInterface::AllowReplacement);
    }
    ~BusObject() override
    {
        bus_.unregisterService(service_);
        bus_.unregisterObject(path_);
    }

    QVariantList answer;
    std::vector<QDBusMessage> calls;

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        calls.push_back(call);
        return bus_.send(call.createReply(answer));
    }

protected:
    QDBusConnection bus_;
    const QString service_, path_;
};

}
