// SPDX-License-Identifier: MIT
#include "fakes/user_notifications.h"

#include "fakes/main_thread.h"
#include "fakes/per_test.h"
#include "fakes/text.h"
#include "fakes/user_environment.h"

#import <UserNotifications/UserNotifications.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <thread>
#include <utility>

using namespace chimewell::test::mac;

NSString* const UNNotificationDefaultActionIdentifier = @"the user clicked the banner";

@implementation UNNotificationAction {
@public
    BannerAction plain_;
}

+ (instancetype)actionWithIdentifier:(NSString*)identifier
                               title:(NSString*)title
                             options:(UNNotificationActionOptions)options
{
    UNNotificationAction* const action = [[self alloc] init];
    action->plain_ = {.identifier = plain(identifier), .title = plain(title), .options = options};
    return action;
}

@end

@implementation UNNotificationCategory {
@public
    BannerCategory plain_;
}

+ (instancetype)categoryWithIdentifier:(NSString*)identifier
                               actions:(NSArray<UNNotificationAction*>*)actions
                     intentIdentifiers:(NSArray<NSString*>*)intents
                               options:(UNNotificationCategoryOptions)options
{
    UNNotificationCategory* const category = [[self alloc] init];
    category->plain_ = {
        .identifier = plain(identifier), .actions = {}, .intents = intents.count, .options = options};
    for (UNNotificationAction* const action in actions)
        category->plain_.actions.push_back(action->plain_);
    return category;
}

@end

@implementation UNNotificationTrigger
@end

@implementation UNNotificationContent {
@public
    NSString* title_;
    NSString* body_;
    NSString* category_;
    NSDictionary* userInfo_;
}

- (NSDictionary*)userInfo
{
    return userInfo_;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

@end

@implementation UNMutableNotificationContent

@synthesize title, body, categoryIdentifier, userInfo;

- (id)copyWithZone:(struct _NSZone*)zone
{
    UNNotificationContent* const copy = [[UNNotificationContent alloc] init];
    copy->title_ = self.title;
    copy->body_ = self.body;
    copy->category_ = self.categoryIdentifier;
    copy->userInfo_ = self.userInfo;
    return copy;
}

@end

@implementation UNNotificationRequest {
@public
    NSString* identifier_;
    UNNotificationTrigger* trigger_;
}

@synthesize content = content_;

+ (instancetype)requestWithIdentifier:(NSString*)identifier
                              content:(UNNotificationContent*)content
                              trigger:(UNNotificationTrigger*)trigger
{
    UNNotificationRequest* const request = [[self alloc] init];
    request->identifier_ = [identifier copy];
    request->content_ = [content copy];
    request->trigger_ = trigger;
    return request;
}

@end

@implementation UNNotification

@synthesize request = request_;

- (instancetype)initWithRequest:(UNNotificationRequest*)request
{
    self = [super init];
    request_ = request;
    return self;
}

@end

@implementation UNNotificationResponse

@synthesize notification = notification_, actionIdentifier = actionIdentifier_;

- (instancetype)initWithNotification:(UNNotification*)notification action:(NSString*)action
{
    self = [super init];
    notification_ = notification;
    actionIdentifier_ = action;
    return self;
}

@end

@implementation UNNotificationSettings {
@public
    UNAuthorizationStatus status_;
}

- (UNAuthorizationStatus)authorizationStatus
{
    return status_;
}

@end

namespace {

struct Shared {
    Banners banners;
    UNUserNotificationCenter* center = [[UNUserNotificationCenter alloc] init];
    std::vector<std::function<void()>> owed;

    std::string leftover() const { return center.delegate ? "the delegate of the notification centre" : ""; }
};

PerTest<Shared> shared;

/// The system brings an autorelease pool to each of its threads.
void onAnotherThread(const std::function<void()>& body)
{
    std::thread([&] {
        @autoreleasepool {
            body();
        }
    }).join();
}

}

@implementation UNUserNotificationCenter

@synthesize delegate; // weak, as declared

+ (UNUserNotificationCenter*)currentNotificationCenter
{
    if (!userEnvironment().bundleIdentifier) { // the real one raises an exception
        std::fputs("the notification centre of a program outside a bundle\n", stderr);
        std::abort();
    }
    return shared->center;
}

- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options
                      completionHandler:(void (^)(BOOL, NSError*))done
{
    shared->banners.asked.push_back(options);
    shared->owed.emplace_back([done] {
        shared->banners.status = shared->banners.answer;
        done(shared->banners.status == UNAuthorizationStatusAuthorized, nil);
    });
}

- (void)setNotificationCategories:(NSSet<UNNotificationCategory*>*)categories
{
    shared->banners.categories.clear();
    for (UNNotificationCategory* const category in categories)
        shared->banners.categories.push_back(category->plain_);
}

- (void)getNotificationSettingsWithCompletionHandler:(void (^)(UNNotificationSettings*))done
{
    shared->owed.emplace_back([done] {
        UNNotificationSettings* const settings = [[UNNotificationSettings alloc] init];
        settings->status_ = static_cast<UNAuthorizationStatus>(shared->banners.status);
        done(settings);
    });
}

- (void)addNotificationRequest:(UNNotificationRequest*)request withCompletionHandler:(void (^)(NSError*))done
{
    UNNotificationContent* const content = request.content;
    PostedBanner banner{.identifier = plain(request->identifier_),
                        .category = plain(content->category_),
                        .title = plain(content->title_),
                        .body = plain(content->body_),
                        .userInfo = {},
                        .hasTrigger = request->trigger_ != nil,
                        .hasHandler = done != nil};
    for (NSString* const key in content.userInfo)
        banner.userInfo.emplace(plain(key), plain(content.userInfo[key]));
    shared->banners.posted.push_back(std::move(banner));
}

@end

namespace chimewell::test::mac {

std::string defaultActionIdentifier()
{
    return plain(UNNotificationDefaultActionIdentifier);
}

bool Banners::hasDelegate() const
{
    return shared->center.delegate != nil;
}

void Banners::giveAnswers() const
{
    for (const auto& answerOwed : std::exchange(shared->owed, {}))
        onAnotherThread(answerOwed);
}

std::optional<unsigned long> Banners::present() const
{
    std::optional<unsigned long> result;
    onAnotherThread([&] {
        const id<UNUserNotificationCenterDelegate> delegate = shared->center.delegate;
        if (![delegate respondsToSelector:@selector(userNotificationCenter:
                                                   willPresentNotification:withCompletionHandler:)])
            return;
        [delegate userNotificationCenter:shared->center
                 willPresentNotification:[[UNNotification alloc] initWithRequest:nil]
                   withCompletionHandler:^(UNNotificationPresentationOptions options) {
                       result = options;
                   }];
    });
    return result;
}

int Banners::respond(const BannerResponse& response) const
{
    std::atomic<int> done = 0;
    std::atomic<int>* const count = &done;
    onAnotherThread([&] {
        const id<UNUserNotificationCenterDelegate> delegate = shared->center.delegate;
        if (![delegate respondsToSelector:@selector(userNotificationCenter:
                                              didReceiveNotificationResponse:withCompletionHandler:)])
            return;
        NSMutableDictionary* const userInfo = [[NSMutableDictionary alloc] init];
        for (const auto& [key, value] : response.userInfo)
            userInfo[text(key)] = text(value);
        if (response.foreignUserInfo) {
            userInfo[@"when"] = [NSDate dateWithTimeIntervalSince1970:0];
            userInfo[[NSDate dateWithTimeIntervalSince1970:0]] = @"what";
        }
        UNMutableNotificationContent* const content = [[UNMutableNotificationContent alloc] init];
        content.userInfo = userInfo;
        UNNotificationRequest* const request = [UNNotificationRequest requestWithIdentifier:@"banner"
                                                                                    content:content
                                                                                    trigger:nil];
        UNNotification* const banner = [[UNNotification alloc] initWithRequest:request];
        [delegate userNotificationCenter:shared->center
            didReceiveNotificationResponse:[[UNNotificationResponse alloc]
                                               initWithNotification:banner
                                                             action:text(response.action)]
                     withCompletionHandler:^{
                         ++*count;
                     }];
    });
    return done;
}

Banners& banners()
{
    return shared->banners;
}

}
