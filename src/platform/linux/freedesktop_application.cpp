// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop_application.h"

#include <utility>

namespace chimewell {

FreedesktopApplication::FreedesktopApplication(QDBusConnection bus) : bus_(std::move(bus))
{
    new FreedesktopApplicationAdaptor(*this); // owned by this object
}

bool FreedesktopApplication::claim()
{
    return bus_.registerObject(QString::fromLatin1(objectPath), this) &&
           bus_.registerService(QString::fromLatin1(busName));
}

FreedesktopApplicationAdaptor::FreedesktopApplicationAdaptor(FreedesktopApplication& application)
    : QDBusAbstractAdaptor(&application),
      application_(application)
{
}

void FreedesktopApplicationAdaptor::Activate(const QVariantMap&)
{
    application_.handlers_.activate();
}

void FreedesktopApplicationAdaptor::Open(const QStringList& uris, const QVariantMap&)
{
    if (uris.isEmpty()) application_.handlers_.open(std::nullopt);
    for (const QString& uri : uris)
        application_.handlers_.open(uri.toStdString());
}

void FreedesktopApplicationAdaptor::ActivateAction(const QString& name, const QVariantList&,
                                                   const QVariantMap&)
{
    application_.handlers_.action(name.toStdString());
}

}
