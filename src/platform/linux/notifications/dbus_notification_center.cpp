// SPDX-License-Identifier: MIT
#include "platform/linux/notifications/dbus_notification_center.h"

#include "platform/linux/freedesktop/dbus_call.h"
#include "values/shared_names.h"

#include <QStringList>
#include <QTimer>
#include <QVariantMap>

#include <algorithm>
#include <chrono>
#include <string_view>

namespace chimewell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds longestWaitForCapabilities{1};
constexpr std::size_t maxUnanswered = 64;
constexpr std::size_t maxClickable = 1000;

QString serverName()
{
    return u"org.freedesktop.Notifications"_s;
}

QString serverPath()
{
    return u"/org/freedesktop/Notifications"_s;
}

QDBusMessage serverCall(const char* method, const QString& server = serverName())
{
    return QDBusMessage::createMethodCall(server, serverPath(), serverName(), QString::fromLatin1(method));
}

/// For servers that understand markup.
std::string escapedMarkup(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else
            result += c;
    }
    return result;
}

}

DbusNotificationCenter::DbusNotificationCenter(QDBusConnection bus, Timers& timers, ActivationTokens& tokens)
    : bus_(std::move(bus)),
      timers_(timers),
      tokens_(tokens),
      ownerWatcher_(serverName(), bus_, QDBusServiceWatcher::WatchForOwnerChange),
      settings_(bus_)
{
    connect(&ownerWatcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { setOwner(owner); });
    connect(&settings_, &DesktopNotificationSettings::changed, this, &DbusNotificationCenter::announceChange);
    callAsync(bus_, busDaemonCall("GetNameOwner") << serverName(), this, [this](const QDBusMessage& reply) {
        // QtDBus delivers a reply later than a signal that the bus sent after it.
        if (!owner_) setOwner(firstArgument(reply).toString());
    });
}

bool DbusNotificationCenter::isAvailable() const
{
    return hasServer() || !owner_ || activatable_.value_or(true);
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
    DesktopNotificationSettings::open();
}

void DbusNotificationCenter::post(const NotificationRequest& request)
{
    if (!isAvailable() || waiting_.size() + unanswered_ >= maxUnanswered) return;
    if (capabilities_ || waitedLongEnough_) {
        send(request);
        if (!capabilities_ && hasServer()) askServer();
        return;
    }
    waiting_.push_back(request);
    if (!timeout_)
        timeout_ = timers_.once(longestWaitForCapabilities, [this] {
            waitedLongEnough_ = true;
            sendWaiting();
        });
    proceed();
}

void DbusNotificationCenter::withdraw(const std::string& identifier)
{
    if (const auto banner = std::ranges::find(banners_, identifier, &Banner::identifier);
        banner != banners_.end())
        close(banner->id);
    else if (std::erase_if(waiting_, [&](const auto& each) { return each.identifier == identifier; }) == 0 &&
             unanswered_ > 0)
        earlyWithdrawals_.insert(identifier);
}

void DbusNotificationCenter::close(uint id)
{
    // To this server alone: another one numbers its banners from 1 again, and none is to be started.
    if (hasServer()) bus_.send(serverCall("CloseNotification", *owner_) << id);
}

void DbusNotificationCenter::findActivatable()
{
    callAsync(bus_, busDaemonCall("ListActivatableNames"), this, [this](const QDBusMessage& reply) {
        const bool before = isAvailable();
        activatable_ = firstArgument(reply).toStringList().contains(serverName());
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
    banners_.clear(); // a new server numbers its banners from 1 again
    lastToken_ = {};
    earlySignals_.clear();
    listenWhileNeeded();
    if (owner.isEmpty()) findActivatable(); // each time: servers are installed and removed
    proceed();
    announceChange();
}

void DbusNotificationCenter::proceed()
{
    if (!hasServer() && !(owner_ && activatable_)) return; // the bus has not answered yet
    if (!readers_.empty()) answerReaders();
    if (waiting_.empty()) return;
    if (hasServer()) {
        askServer();
    } else if (*activatable_) {
        startServer();
    } else {
        timeout_.reset();
        waiting_.clear();
    }
}

void DbusNotificationCenter::answerReaders()
{
    settings_.readOff([this, readers = std::exchange(readers_, {})](bool off) {
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
    callAsync(bus_, busDaemonCall("StartServiceByName") << serverName() << 0U, this,
              [this](const QDBusMessage& reply) {
                  // The bus announces a started server as the new owner before it sends this reply.
                  if (firstArgument(reply).isValid() || !std::exchange(starting_, false)) return;
                  timeout_.reset();
                  waiting_.clear();
                  findActivatable();
              });
}

void DbusNotificationCenter::askServer()
{
    if (std::exchange(capabilitiesAsked_, true)) return;
    callAsync(bus_, serverCall("GetServerInformation"), this,
              [this, asked = owner_](const QDBusMessage& reply) {
                  if (asked == owner_) askCapabilities(firstArgument(reply).toString());
              });
}

void DbusNotificationCenter::askCapabilities(const QString& serverSoftware)
{
    callAsync(bus_, serverCall("GetCapabilities"), this,
              [this, asked = owner_, serverSoftware](const QDBusMessage& reply) {
                  if (asked != owner_) return;
                  const QVariant answer = firstArgument(reply);
                  if (answer.isValid()) {
                      const QStringList names = answer.toStringList();
                      // Xfce's server reports only clicks on buttons. It draws the default action as one
                      // more button, and since version 0.9 also when the action has no label.
                      capabilities_ = {.actions = names.contains(u"actions"),
                                       .bodyMarkup = names.contains(u"body-markup"),
                                       .bannerClicks = serverSoftware != u"Xfce Notify Daemon"};
                  } else { // goes on without, and asks again with the next banner
                      capabilitiesAsked_ = false;
                      waitedLongEnough_ = true;
                  }
                  sendWaiting();
              });
}

void DbusNotificationCenter::sendWaiting()
{
    timeout_.reset();
    for (const NotificationRequest& request : std::exchange(waiting_, {}))
        send(request);
}

void DbusNotificationCenter::send(const NotificationRequest& request)
{
    ++unanswered_;
    listenWhileNeeded();
    callAsync(bus_, notifyCall(request), this,
              [this, request, asked = owner_.value_or(QString())](const QDBusMessage& reply) {
                  --unanswered_;
                  // An answer of a server that was replaced in the meantime names a banner that no longer
                  // exists. A reply does not name its sender in every version of Qt.
                  const QVariant id = firstArgument(reply);
                  if (id.isValid() && (asked.isEmpty() || asked == owner_)) remember(id.toUInt(), request);
                  for (const QDBusMessage& signal : std::exchange(earlySignals_, {}))
                      onSignal(signal);
                  if (earlyWithdrawals_.erase(request.identifier) > 0) withdraw(request.identifier);
                  if (unanswered_ == 0) earlyWithdrawals_.clear();
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
            actions << QString::fromStdString(category_.actionIdentifier)
                    << QString::fromStdString(category_.actionTitle);
    }
    constexpr uchar normalUrgency = 1;
    const QVariantMap hints{
        {u"desktop-entry"_s, QString::fromLatin1(applicationId)},
        // None of the registered categories is about programs that run for the user.
        {u"category"_s, u"x-chimewell.agent"_s},
        {u"urgency"_s, QVariant::fromValue(normalUrgency)},
        {u"suppress-sound"_s, true},
    };
    constexpr uint replacesNone = 0;
    constexpr int serversOwnExpiry = -1;
    QDBusMessage call = serverCall("Notify");
    call << u"Chimewell"_s << replacesNone << QString::fromLatin1(applicationId)
         << QString::fromStdString(request.title)
         << QString::fromStdString(server.bodyMarkup ? escapedMarkup(request.body) : request.body) << actions
         << hints << serversOwnExpiry;
    return call;
}

void DbusNotificationCenter::remember(uint id, const NotificationRequest& request)
{
    if (const auto before = find(id); before != banners_.end()) banners_.erase(before);
    banners_.push_back({.id = id, .identifier = request.identifier, .userInfo = request.userInfo});
    if (banners_.size() > maxClickable) banners_.pop_front();
}

auto DbusNotificationCenter::find(uint id) -> std::deque<Banner>::iterator
{
    return std::ranges::find(banners_, id, &Banner::id);
}

// Servers send every signal to every program. While we show no banner, none need wake us.
void DbusNotificationCenter::listenWhileNeeded()
{
    const bool needed = unanswered_ > 0 || !banners_.empty();
    if (std::exchange(listening_, needed) == needed) return;
    for (const char* name : {"ActivationToken", "ActionInvoked", "NotificationClosed"}) {
        // With a sender QtDBus would block to ask the bus for its owner. The slot compares it instead.
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
        // It belongs to another program, or it arrived before the answer with our banner's id.
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
