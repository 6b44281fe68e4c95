// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/freedesktop/activation_tokens.h"
#include "platform/linux/notifications/desktop_banner_switch.h"
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
#include <string>
#include <utility>
#include <vector>

namespace chimewell {

/// Banners by the desktop's notification server (freedesktop.org, Desktop Notifications 1.2). The server may
/// be missing, hang, die and be replaced at any time: nothing here waits for it. Until the bus has told
/// whether there is a server, banners count as available.
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
    void openSystemSettings() override;
    void setChangeHandler(std::function<void()> changed) override;

private Q_SLOTS:
    void onSignal(const QDBusMessage& signal);

private:
    /// What is assumed of a server that does not answer: escaped text reads right in most of those that show
    /// no markup, while unescaped text is an injection, or an empty banner, in those that do.
    struct Capabilities {
        bool actions = true;
        bool bodyMarkup = true;
        bool bannerClicks = true; ///< A click on the banner beside its buttons can be told to us.
    };
    struct Banner {
        uint id;
        std::map<std::string, std::string> userInfo;
    };

    void findOwner();
    void findActivatable();
    void setOwner(const QString& owner);
    /// Does what was put off until the bus told about the server.
    void proceed();
    void answerReaders();
    void startServer();
    void askServer();
    void askCapabilities(const QString& serverSoftware);
    void sendWaiting();
    void send(const NotificationRequest& request);
    QDBusMessage notifyCall(const NotificationRequest& request) const;
    void remember(uint id, const std::map<std::string, std::string>& userInfo);
    std::deque<Banner>::iterator find(uint id);
    void replayEarlySignals();
    void click(const Banner& banner, const QString& action);
    void listenWhileNeeded();
    void announceChange() const;

    QDBusConnection bus_;
    Timers& timers_;
    ActivationTokens& tokens_;
    QDBusServiceWatcher ownerWatcher_;
    DesktopBannerSwitch switch_;
    std::function<void(const NotificationResponse&)> response_;
    std::function<void()> changed_;
    NotificationCategory category_;

    std::optional<QString> owner_; ///< The server's unique name, empty without a server; absent until known.
    std::optional<bool> activatable_;
    bool starting_ = false;

    // All of the present owner.
    bool capabilitiesAsked_ = false;
    std::optional<Capabilities> capabilities_;
    bool waitedLongEnough_ = false;
    std::deque<Banner> banners_;             ///< Those that may still be clicked, oldest first.
    std::pair<uint, std::string> lastToken_; ///< Of the banner with that id.
    std::deque<QDBusMessage> earlySignals_;  ///< They may be about banners whose ids are still to come.
    QString listeningTo_;                    ///< The owner whose signals we get, empty for none.

    std::vector<std::function<void(NotificationPermission)>> readers_;
    std::vector<NotificationRequest> waiting_; ///< For the capabilities.
    std::unique_ptr<Timer> patience_;
    bool listening_ = false;
    std::size_t unanswered_ = 0; ///< Banners sent and not yet acknowledged.
};

}
