// SPDX-License-Identifier: MIT
#pragma once

// The part of UserNotifications that we use, declared by hand for checking on other systems. It is there
// since macOS 10.14, but where a later one is named.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NS_OPTIONS(NSUInteger, UNAuthorizationOptions) {
    UNAuthorizationOptionBadge = 1 << 0,
    UNAuthorizationOptionSound = 1 << 1,
    UNAuthorizationOptionAlert = 1 << 2,
};

typedef NS_ENUM(NSInteger, UNAuthorizationStatus) {
    UNAuthorizationStatusNotDetermined = 0,
    UNAuthorizationStatusDenied,
    UNAuthorizationStatusAuthorized,
    UNAuthorizationStatusProvisional,
};

typedef NS_OPTIONS(NSUInteger, UNNotificationActionOptions) { UNNotificationActionOptionForeground = 1 << 2 };

typedef NS_OPTIONS(NSUInteger, UNNotificationCategoryOptions) { UNNotificationCategoryOptionNone = 0 };

typedef NS_OPTIONS(NSUInteger, UNNotificationPresentationOptions) {
    UNNotificationPresentationOptionList = 1 << 3,   // 11.0
    UNNotificationPresentationOptionBanner = 1 << 4, // 11.0
};

NS_EXTERN NSString* const UNNotificationDefaultActionIdentifier;

@interface UNNotificationAction : NSObject
+ (instancetype)actionWithIdentifier:(NSString*)identifier title:(NSString*)title options:(UNNotificationActionOptions)options;
@end

@interface UNNotificationCategory : NSObject
+ (instancetype)categoryWithIdentifier:(NSString*)identifier actions:(NSArray<UNNotificationAction*>*)actions intentIdentifiers:(NSArray<NSString*>*)intentIdentifiers options:(UNNotificationCategoryOptions)options;
@end

@class UNNotificationTrigger;

@interface UNNotificationContent : NSObject
@property (nonatomic, readonly, copy) NSDictionary* userInfo;
@end

@interface UNMutableNotificationContent : UNNotificationContent
@property (nonatomic, copy) NSString* title;
@property (nonatomic, copy) NSString* body;
@property (nonatomic, copy) NSString* categoryIdentifier;
@property (nonatomic, copy) NSDictionary* userInfo;
@end

@interface UNNotificationRequest : NSObject
+ (instancetype)requestWithIdentifier:(NSString*)identifier content:(UNNotificationContent*)content trigger:(nullable UNNotificationTrigger*)trigger;
@property (nonatomic, readonly, copy) UNNotificationContent* content;
@end

@interface UNNotification : NSObject
@property (nonatomic, readonly, copy) UNNotificationRequest* request;
@end

@interface UNNotificationResponse : NSObject
@property (nonatomic, readonly, copy) UNNotification* notification;
@property (nonatomic, readonly, copy) NSString* actionIdentifier;
@end

@interface UNNotificationSettings : NSObject
@property (nonatomic, readonly) UNAuthorizationStatus authorizationStatus;
@end

@class UNUserNotificationCenter;

@protocol UNUserNotificationCenterDelegate <NSObject>
@optional
- (void)userNotificationCenter:(UNUserNotificationCenter*)center willPresentNotification:(UNNotification*)notification withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))completionHandler;
- (void)userNotificationCenter:(UNUserNotificationCenter*)center didReceiveNotificationResponse:(UNNotificationResponse*)response withCompletionHandler:(void (^)(void))completionHandler;
@end

@interface UNUserNotificationCenter : NSObject
@property (nullable, nonatomic, weak) id<UNUserNotificationCenterDelegate> delegate;
+ (UNUserNotificationCenter*)currentNotificationCenter;
- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options completionHandler:(void (^)(BOOL granted, NSError* _Nullable error))completionHandler;
- (void)setNotificationCategories:(NSSet<UNNotificationCategory*>*)categories;
- (void)getNotificationSettingsWithCompletionHandler:(void (^)(UNNotificationSettings* settings))completionHandler;
- (void)addNotificationRequest:(UNNotificationRequest*)request withCompletionHandler:(void (^_Nullable)(NSError* _Nullable error))completionHandler;
- (void)removeDeliveredNotificationsWithIdentifiers:(NSArray<NSString*>*)identifiers;
@end

#pragma clang assume_nonnull end
