// SPDX-License-Identifier: MIT
#include "platform/linux/session/freedesktop_application.h"

#include "values/shared_names.h"

#include <algorithm>
#include <utility>

namespace chimewell {

namespace {

constexpr qsizetype maxUrls = 256; // of one request; nobody sends more by way of business

}

FreedesktopApplication::FreedesktopApplication(QDBusConnection bus) : bus_(std::move(bus))
{
    connect(&next_, &QTimer::timeout, this, &FreedesktopApplication::handleNext);
    new FreedesktopApplicationAdaptor(*this); // owned by this object
}

void FreedesktopApplication::later(std::function<void()> request)
{
    requests_.push_back(std::move(request));
    next_.start();
}

void FreedesktopApplication::handleNext()
{
    const auto request = std::move(requests_.front());
    requests_.pop_front();
    if (requests_.empty()) next_.stop();
    request();
}

bool FreedesktopApplication::claim()
{
    return bus_.registerObject(QString::fromLatin1(applicationObjectPath), this) &&
           bus_.registerService(QString::fromLatin1(applicationId));
}

FreedesktopApplicationAdaptor::FreedesktopApplicationAdaptor(FreedesktopApplication& application)
    : QDBusAbstractAdaptor(&application),
      application_(application)
{
}

void FreedesktopApplicationAdaptor::Activate(const QVariantMap&)
{
    application_.later([this] { application_.handlers_.activate(); });
}

void FreedesktopApplicationAdaptor::Open(const QStringList& uris, const QVariantMap&)
{
    if (uris.isEmpty()) application_.later([this] { application_.handlers_.open(std::nullopt); });
    for (const QString& uri : uris.first(std::min(uris.size(), maxUrls)))
        application_.later([this, url = uri.toStdString()] { application_.handlers_.open(url); });
}

void FreedesktopApplicationAdaptor::ActivateAction(const QString& name, const QVariantList&,
                                                   const QVariantMap&)
{
    application_.later([this, action = name.toStdString()] { application_.handlers_.action(action); });
}

}
