// SPDX-License-Identifier: MIT
#include "platform/macos/user_notification_center.h"

#include "platform/macos/foundation.h"

#import <AppKit/AppKit.h>
#import <UserNotifications/UserNotifications.h>

#include <utility>

@interface ChimewellNotificationDelegate : NSObject <UNUserNotificationCenterDelegate>
@property (nonatomic, copy) void (^responded)(const chimewell::NotificationResponse& response);
@end

namespace chimewell {

namespace {

/// Nil for a program that is not in an application bundle, where the system would raise an exception.
UNUserNotificationCenter* center()
{
    return NSBundle.mainBundle.bundleIdentifier ? [UNUserNotificationCenter currentNotificationCenter] : nil;
}

NotificationPermission permission(UNAuthorizationStatus status)
{
    constexpr UNAuthorizationStatus ephemeral = static_cast<UNAuthorizationStatus>(4); // nameless on macOS
    switch (status) {
    case UNAuthorizationStatusNotDetermined:
        return NotificationPermission::notDetermined;
    case UNAuthorizationStatusDenied:
        return NotificationPermission::denied;
    case UNAuthorizationStatusAuthorized:
        return NotificationPermission::authorized;
    case UNAuthorizationStatusProvisional:
        return NotificationPermission::provisional;
    default:
        return status == ephemeral ? NotificationPermission::ephemeral : NotificationPermission::unknown;
    }
}

NSDictionary* foundationUserInfo(const std::map<std::string, std::string>& userInfo)
{
    NSMutableDictionary<NSString*, NSString*>* const result = [[NSMutableDictionary alloc] init];
    for (const auto& [key, value] : userInfo)
        result[foundationText(key)] = foundationText(value);
    return result;
}

NotificationResponse notificationResponse(UNNotificationResponse* response)
{
    NotificationResponse result;
    const bool isDefault = [response.actionIdentifier isEqualToString:UNNotificationDefaultActionIdentifier];
    result.actionIdentifier = isDefault ? defaultNotificationAction : utf8(response.actionIdentifier);
    NSDictionary* const userInfo = response.notification.request.content.userInfo;
    for (id key in userInfo) {
        const id value = userInfo[key];
        if ([key isKindOfClass:[NSString class]] && [value isKindOfClass:[NSString class]])
            result.userInfo.emplace(utf8(key), utf8(value));
    }
    return result;
}

}

}

@implementation ChimewellNotificationDelegate

- (void)userNotificationCenter:(UNUserNotificationCenter*)center
       willPresentNotification:(UNNotification*)notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))completionHandler
{
    static_cast<void>(center);
    static_cast<void>(notification);
    completionHandler(static_cast<UNNotificationPresentationOptions>(UNNotificationPresentationOptionBanner |
                                                                     UNNotificationPresentationOptionList));
}

- (void)userNotificationCenter:(UNUserNotificationCenter*)center
    didReceiveNotificationResponse:(UNNotificationResponse*)response
             withCompletionHandler:(void (^)(void))completionHandler
{
    static_cast<void>(center);
    self.responded(chimewell::notificationResponse(response));
    completionHandler();
}

@end

namespace chimewell {

/// What answers on other threads hold weakly; it is used on the main thread only.
struct UserNotificationCenter::State {
    ChimewellNotificationDelegate* delegate = [[ChimewellNotificationDelegate alloc] init];
    std::function<void(const NotificationResponse&)> response;
    std::unique_ptr<NotificationObserver> activation;
};

UserNotificationCenter::UserNotificationCenter() : state_(std::make_shared<State>())
{
    const std::weak_ptr<State> weak = state_;
    state_->delegate.responded = ^(const NotificationResponse& response) {
        postToMain([weak, response] {
            if (const auto state = weak.lock()) state->response(response);
        });
    };
}

UserNotificationCenter::~UserNotificationCenter() = default;

bool UserNotificationCenter::isAvailable() const
{
    return center() != nil;
}

void UserNotificationCenter::setResponseHandler(std::function<void(const NotificationResponse&)> response)
{
    state_->response = std::move(response);
    center().delegate = state_->delegate;
}

void UserNotificationCenter::setCategory(const NotificationCategory& category)
{
    UNNotificationAction* const action =
        [UNNotificationAction actionWithIdentifier:foundationText(category.actionIdentifier)
                                             title:foundationText(category.actionTitle)
                                           options:UNNotificationActionOptionForeground];
    UNNotificationCategory* const made =
        [UNNotificationCategory categoryWithIdentifier:foundationText(category.identifier)
                                               actions:@[ action ]
                                     intentIdentifiers:@[]
                                               options:UNNotificationCategoryOptionNone];
    [center() setNotificationCategories:[NSSet setWithObject:made]];
}

void UserNotificationCenter::readPermission(std::function<void(NotificationPermission)> done)
{
    const std::weak_ptr<State> weak = state_;
    [center() getNotificationSettingsWithCompletionHandler:^(UNNotificationSettings* settings) {
        const NotificationPermission answer = permission(settings.authorizationStatus);
        postToMain([weak, answer, done] {
            if (!weak.expired()) done(answer);
        });
    }];
}

void UserNotificationCenter::requestPermission(std::function<void()> done)
{
    const std::weak_ptr<State> weak = state_;
    const auto options = static_cast<UNAuthorizationOptions>(
        UNAuthorizationOptionAlert | UNAuthorizationOptionSound | UNAuthorizationOptionBadge);
    // Whether it was granted is read again, like every change of the permission.
    [center() requestAuthorizationWithOptions:options
                            completionHandler:^(BOOL, NSError*) {
                                postToMain([weak, done] {
                                    if (!weak.expired()) done();
                                });
                            }];
}

void UserNotificationCenter::post(const NotificationRequest& request)
{
    UNMutableNotificationContent* const content = [[UNMutableNotificationContent alloc] init];
    content.title = foundationText(request.title);
    content.body = foundationText(request.body);
    content.categoryIdentifier = foundationText(request.categoryIdentifier);
    content.userInfo = foundationUserInfo(request.userInfo);
    UNNotificationRequest* const made =
        [UNNotificationRequest requestWithIdentifier:foundationText(request.identifier)
                                             content:content
                                             trigger:nil];
    [center() addNotificationRequest:made withCompletionHandler:nil];
}

void UserNotificationCenter::withdraw(const std::string& identifier)
{
    [center() removeDeliveredNotificationsWithIdentifiers:@[ foundationText(identifier) ]];
}

void UserNotificationCenter::openSystemSettings()
{
    NSURL* const page = [NSURL URLWithString:@"x-apple.systempreferences:com.apple.preference.notifications"];
    if (page) [NSWorkspace.sharedWorkspace openURL:page];
}

void UserNotificationCenter::setChangeHandler(std::function<void()> changed)
{
    state_->activation = std::make_unique<NotificationObserver>(
        NSNotificationCenter.defaultCenter, NSApplicationDidBecomeActiveNotification, std::move(changed));
}

}
