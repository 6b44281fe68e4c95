// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/freedesktop/activation.h"
#include "platform/linux/notifications/desktop_notification_settings.h"
#include "ports/notification_center.h"
#include "ports/timers.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace chimewell {

/// Shows banners through the desktop's notification server (freedesktop.org, Desktop Notifications 1.2). The
/// server may be missing, hang, die and be replaced at any time: no call here blocks on it. Until the bus has
/// answered whether there is a server, banners count as available.
class DbusNotificationCenter final : public QObject, public NotificationCenter {
    Q_OBJECT
public:
    /// A click's activation token is in `tokens` before the response handler runs.
    DbusNotificationCenter(QDBusConnection bus, Timers& timers, ActivationTokens& tokens);

    bool isAvailable() const override;
    void setResponseHandler(std::function<void(const NotificationResponse&)> response) override;
    void setCategory(const NotificationCategory& category) override;
    void readPermission(std::function<void(NotificationPermission)> done) override;
    void requestPermission(std::function<void()> done) override;
    /// The first banner for a server waits until its capabilities are known, at most a second. While 64
    /// banners are unanswered, further ones are dropped.
    void post(const NotificationRequest& request) override;
    /// A banner whose number the server hasn't told yet is closed when it does.
    void withdraw(const std::string& identifier) override;
    void openSystemSettings() override;
    void setChangeHandler(std::function<void()> changed) override;

private Q_SLOTS:
    void onSignal(const QDBusMessage& signal);

private:
    /// The defaults are assumed of a server that does not answer. Most servers without markup still show
    /// escaped text correctly; servers with markup would take unescaped text for markup, or show nothing.
    struct Capabilities {
        bool actions = true;
        bool bodyMarkup = true;
        bool bannerClicks = true; ///< It reports clicks on the banner itself, not only on its buttons.
    };
    struct Banner {
        uint id; ///< The server's number.
        std::string identifier;
        std::map<std::string, std::string> userInfo;
    };

    bool hasServer() const { return owner_ && !owner_->isEmpty(); }
    void findActivatable();
    void setOwner(const QString& owner);
    /// Continues what waits for the bus to tell who the server is.
    void proceed();
    void answerReaders();
    void startServer();
    void askServer();
    void askCapabilities(const QString& serverSoftware);
    void sendWaiting();
    void send(const NotificationRequest& request);
    QDBusMessage notifyCall(const NotificationRequest& request) const;
    void remember(uint id, const NotificationRequest& request);
    void close(uint id);
    std::deque<Banner>::iterator find(uint id);
    void click(const Banner& banner, const QString& action);
    void listenWhileNeeded();
    void announceChange() const;

    QDBusConnection bus_;
    Timers& timers_;
    ActivationTokens& tokens_;
    QDBusServiceWatcher ownerWatcher_;
    DesktopNotificationSettings settings_;
    std::function<void(const NotificationResponse&)> response_;
    std::function<void()> changed_;
    NotificationCategory category_;

    std::optional<QString> owner_; ///< The server's unique name, empty without a server; absent until known.
    std::optional<bool> activatable_;
    bool starting_ = false;

    // About the current owner.
    bool capabilitiesAsked_ = false;
    std::optional<Capabilities> capabilities_;
    bool waitedLongEnough_ = false;
    std::deque<Banner> banners_;             ///< Those that may still be clicked, oldest first.
    std::pair<uint, std::string> lastToken_; ///< Of the banner with that id.
    std::deque<QDBusMessage> earlySignals_;  ///< May be about banners whose ids are not known yet.

    std::vector<std::function<void(NotificationPermission)>> readers_;
    std::vector<NotificationRequest> waiting_; ///< Until the capabilities are known.
    std::unique_ptr<Timer> timeout_;           ///< Runs while banners wait for the capabilities.
    bool listening_ = false;
    std::size_t unanswered_ = 0;             ///< Banners sent and not yet acknowledged.
    std::set<std::string> earlyWithdrawals_; ///< Identifiers of banners that may be among them.
};

}
