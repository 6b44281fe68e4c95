// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/dbus_notification_center.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "platform/linux/notifications/desktop_notification_settings.h"
#include "platform/linux/notifications/escaped_markup.h"
#include "values/shared_names.h"

#include <QStringList>
#include <QTimer>
#include <QVariantMap>

#include <algorithm>
#include <chrono>

namespace chimewell {
namespace {

constexpr std::chrono::seconds longestWaitForCapabilities{1};
constexpr std::size_t maxUnanswered = 64;
constexpr std::size_t maxClickable = 1000;

QString serverName()
{
    return QStringLiteral("org.freedesktop.Notifications");
}

QString serverPath()
{
    return QStringLiteral("/org/freedesktop/Notifications");
}

/// Xfce's server never tells of a click beside the buttons. It draws the default action as one more button,
/// and since version 0.9 also when it has no label.
QString drawsDefaultActionAsButton()
{
    return QStringLiteral("Xfce Notify Daemon");
}

QDBusMessage serverCall(const char* method)
{
    return QDBusMessage::createMethodCall(serverName(), serverPath(), serverName(),
                                          QString::fromLatin1(method));
}

bool isReply(const QDBusMessage& message)
{
    return message.type() == QDBusMessage::ReplyMessage && !message.arguments().isEmpty();
}

QString fromUtf8(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}

DbusNotificationCenter::DbusNotificationCenter(QDBusConnection bus, Timers& timers, ActivationTokens& tokens)
    : bus_(std::move(bus)),
      timers_(timers),
      tokens_(tokens),
      ownerWatcher_(serverName(), bus_, QDBusServiceWatcher::WatchForOwnerChange),
      switch_(bus_)
{
    connect(&ownerWatcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { setOwner(owner); });
    connect(&switch_, &DesktopBannerSwitch::changed, this, &DbusNotificationCenter::announceChange);
    findOwner();
}

bool DbusNotificationCenter::isAvailable() const
{
    return !owner_ || !owner_->isEmpty() || activatable_.value_or(true);
}

void DbusNotificationCenter::setResponseHandler(std::function<void(const NotificationResponse&)> response)
{
    response_ = std::move(response);
}

void DbusNotificationCenter::setCategory(const NotificationCategory& category)
{
    category_ = category;
}

void DbusNotificationCenter::setChangeHandler(std::function<void()> changed)
{
    changed_ = std::move(changed);
}

void DbusNotificationCenter::readPermission(std::function<void(NotificationPermission)> done)
{
    readers_.push_back(std::move(done));
    proceed();
}

void DbusNotificationCenter::requestPermission(std::function<void()> done)
{
    // The desktop has no such question.
    QTimer::singleShot(0, this, std::move(done));
}

void DbusNotificationCenter::openSystemSettings()
{
    openDesktopNotificationSettings();
}

void DbusNotificationCenter::post(const NotificationRequest& request)
{
    if (!isAvailable() || waiting_.size() + unanswered_ >= maxUnanswered) return;
    if (capabilities_ || waitedLongEnough_) {
        send(request);
        if (!capabilities_ && owner_ && !owner_->isEmpty()) askServer();
        return;
    }
    waiting_.push_back(request);
    if (!patience_)
        patience_ = timers_.once(longestWaitForCapabilities, [this] {
            waitedLongEnough_ = true;
            sendWaiting();
        });
    proceed();
}

void DbusNotificationCenter::findOwner()
{
    QDBusMessage call = busDaemonCall("GetNameOwner");
    call << serverName();
    callAsync(bus_, call, this, [this](const QDBusMessage& reply) {
        setOwner(isReply(reply) ? reply.arguments().constFirst().toString() : QString());
    });
}

void DbusNotificationCenter::findActivatable()
{
    callAsync(bus_, busDaemonCall("ListActivatableNames"), this, [this](const QDBusMessage& reply) {
        const bool before = isAvailable();
        activatable_ = isReply(reply) && reply.arguments().constFirst().toStringList().contains(serverName());
        proceed();
        if (isAvailable() != before) announceChange();
    });
}

void DbusNotificationCenter::setOwner(const QString& owner)
{
    if (owner_ == owner) return;
    owner_ = owner;
    starting_ = false;
    capabilitiesAsked_ = false;
    capabilities_.reset();
    waitedLongEnough_ = false;
    banners_.clear(); // a new server counts its banners anew
    lastToken_ = {};
    earlySignals_.clear();
    listenWhileNeeded();
    if (owner.isEmpty()) findActivatable(); // anew each time: servers are installed and removed
    proceed();
    announceChange();
}

void DbusNotificationCenter::proceed()
{
    const bool serverThere = owner_ && !owner_->isEmpty();
    if (!serverThere && !(owner_ && activatable_)) return; // the answers are on their way
    if (!readers_.empty()) answerReaders();
    if (waiting_.empty()) return;
    if (serverThere) {
        askServer();
    } else if (*activatable_) {
        startServer();
    } else {
        patience_.reset();
        waiting_.clear();
    }
}

void DbusNotificationCenter::answerReaders()
{
    switch_.read([this, readers = std::exchange(readers_, {})](bool off) {
        const auto permission = !isAvailable() ? NotificationPermission::unknown
                                : off          ? NotificationPermission::denied
                                               : NotificationPermission::authorized;
        for (const auto& done : readers)
            done(permission);
    });
}

void DbusNotificationCenter::startServer()
{
    if (std::exchange(starting_, true)) return;
    QDBusMessage call = busDaemonCall("StartServiceByName");
    call << serverName() << 0U;
    callAsync(bus_, call, this, [this](const QDBusMessage& reply) {
        // A server that came up has announced itself as the new owner before this reply.
        if (isReply(reply) || !std::exchange(starting_, false)) return;
        patience_.reset();
        waiting_.clear();
        findActivatable();
    });
}

void DbusNotificationCenter::askServer()
{
    if (std::exchange(capabilitiesAsked_, true)) return;
    callAsync(bus_, serverCall("GetServerInformation"), this,
              [this, asked = owner_](const QDBusMessage& reply) {
                  if (asked != owner_) return;
                  askCapabilities(isReply(reply) ? reply.arguments().constFirst().toString() : QString());
              });
}

void DbusNotificationCenter::askCapabilities(const QString& serverSoftware)
{
    callAsync(bus_, serverCall("GetCapabilities"), this,
              [this, asked = owner_, serverSoftware](const QDBusMessage& reply) {
                  if (asked != owner_) return;
                  if (isReply(reply)) {
                      const QStringList names = reply.arguments().constFirst().toStringList();
                      capabilities_ = {.actions = names.contains(QStringLiteral("actions")),
                                       .bodyMarkup = names.contains(QStringLiteral("body-markup")),
                                       .bannerClicks = serverSoftware != drawsDefaultActionAsButton()};
                  } else { // goes on without, and asks again with the next banner
                      capabilitiesAsked_ = false;
                      waitedLongEnough_ = true;
                  }
                  sendWaiting();
              });
}

void DbusNotificationCenter::sendWaiting()
{
    patience_.reset();
    for (const NotificationRequest& request : std::exchange(waiting_, {}))
        send(request);
}

void DbusNotificationCenter::send(const NotificationRequest& request)
{
    ++unanswered_;
    listenWhileNeeded();
    callAsync(
        bus_, notifyCall(request), this,
        [this, userInfo = request.userInfo, asked = owner_.value_or(QString())](const QDBusMessage& reply) {
            --unanswered_;
            // An answer of a server that was replaced meanwhile names a banner that is gone. A reply does
            // not tell its sender in every version of Qt.
            if (isReply(reply) && (asked.isEmpty() || asked == owner_))
                remember(reply.arguments().constFirst().toUInt(), userInfo);
            replayEarlySignals();
            listenWhileNeeded();
        });
}

QDBusMessage DbusNotificationCenter::notifyCall(const NotificationRequest& request) const
{
    const Capabilities server = capabilities_.value_or(Capabilities{});
    QStringList actions;
    if (server.actions) {
        // No label, so that servers which also draw this action as a button do not draw the same button
        // twice.
        if (server.bannerClicks) actions << QString::fromLatin1(defaultNotificationAction) << QString();
        if (request.categoryIdentifier == category_.identifier && !category_.actionIdentifier.empty())
            actions << fromUtf8(category_.actionIdentifier) << fromUtf8(category_.actionTitle);
    }
    constexpr uchar normalUrgency = 1;
    const QVariantMap hints{
        {QStringLiteral("desktop-entry"), QString::fromLatin1(applicationId)},
        // None of the registered categories is about programs that run for the user.
        {QStringLiteral("category"), QStringLiteral("x-chimewell.agent")},
        {QStringLiteral("urgency"), QVariant::fromValue(normalUrgency)},
        {QStringLiteral("suppress-sound"), true},
    };
    constexpr uint replacesNone = 0;
    constexpr int serversOwnExpiry = -1;
    QDBusMessage call = serverCall("Notify");
    call << QStringLiteral("Chimewell") << replacesNone << QString::fromLatin1(applicationId)
         << fromUtf8(request.title)
         << fromUtf8(server.bodyMarkup ? escapedMarkup(request.body) : request.body) << actions << hints
         << serversOwnExpiry;
    return call;
}

void DbusNotificationCenter::remember(uint id, const std::map<std::string, std::string>& userInfo)
{
    if (const auto before = find(id); before != banners_.end()) banners_.erase(before);
    banners_.push_back({.id = id, .userInfo = userInfo});
    if (banners_.size() > maxClickable) banners_.pop_front();
}

auto DbusNotificationCenter::find(uint id) -> std::deque<Banner>::iterator
{
    return std::ranges::find(banners_, id, &Banner::id);
}

// Every server tells all programs about all banners. Whoever shows none at the moment need not be woken.
void DbusNotificationCenter::listenWhileNeeded()
{
    const bool needed = unanswered_ > 0 || !banners_.empty();
    if (std::exchange(listening_, needed) == needed) return;
    for (const char* name : {"ActivationToken", "ActionInvoked", "NotificationClosed"}) {
        // With a sender QtDBus would ask the bus for its owner, and wait; the slot compares it instead.
        const QString anySender;
        const QString signal = QString::fromLatin1(name);
        const char* const slot = SLOT(onSignal(QDBusMessage));
        if (needed)
            bus_.connect(anySender, serverPath(), serverName(), signal, this, slot);
        else
            bus_.disconnect(anySender, serverPath(), serverName(), signal, this, slot);
    }
}

void DbusNotificationCenter::onSignal(const QDBusMessage& signal)
{
    const QVariantList arguments = signal.arguments();
    if (signal.service() != owner_ || arguments.size() != 2) return;
    const uint id = arguments[0].toUInt();
    const auto banner = find(id);
    if (banner == banners_.end()) {
        // Of another program; or a click can overtake the answer that tells our banner's id.
        if (unanswered_ > 0) earlySignals_.push_back(signal);
        if (earlySignals_.size() > maxUnanswered) earlySignals_.pop_front();
    } else if (signal.member() == u"ActivationToken") {
        lastToken_ = {id, arguments[1].toString().toStdString()};
    } else if (signal.member() == u"ActionInvoked") {
        click(*banner, arguments[1].toString());
    } else {
        banners_.erase(banner);
        listenWhileNeeded();
    }
}

void DbusNotificationCenter::replayEarlySignals()
{
    for (const QDBusMessage& signal : std::exchange(earlySignals_, {}))
        onSignal(signal);
}

void DbusNotificationCenter::click(const Banner& banner, const QString& action)
{
    const auto [tokenId, token] = std::exchange(lastToken_, {});
    tokens_.put(tokenId == banner.id ? token : std::string());
    if (response_) response_({.actionIdentifier = action.toStdString(), .userInfo = banner.userInfo});
}

void DbusNotificationCenter::announceChange() const
{
    if (changed_) changed_();
}

}
