// SPDX-License-Identifier: MIT
#include "fakes/workspace.h"

#include "fakes/main_thread.h"
#include "fakes/notification_center.h"
#include "fakes/per_test.h"
#include "fakes/text.h"

#import <AppKit/AppKit.h>

using namespace chimewell::test::mac;

namespace {

struct Shared {
    DesktopRecord desktop;
    std::vector<std::string> application;
    NSWorkspace* workspace = [[NSWorkspace alloc] init];
    NSApplication* sharedApplication = [[NSApplication alloc] init];
};

PerTest<Shared> shared;

void ask(const std::string& what)
{
    requireMainThread("the workspace");
    shared->desktop.asked.push_back(what);
}

std::string manner(NSWorkspaceOpenConfiguration* configuration)
{
    return configuration.activates ? " activating" : " in the background";
}

}

@implementation NSWorkspaceOpenConfiguration

@synthesize activates = activates_;

+ (instancetype)configuration
{
    return [[self alloc] init];
}

- (instancetype)init
{
    self = [super init];
    activates_ = YES; // Apple's default; a background launch has to ask for it
    return self;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    NSWorkspaceOpenConfiguration* const copy = [[NSWorkspaceOpenConfiguration alloc] init];
    copy.activates = self.activates;
    return copy;
}

@end

@implementation NSRunningApplication {
    NSString* identifier_;
}

+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)identifier
{
    if (!shared->desktop.running.contains(plain(identifier))) return @[];
    NSRunningApplication* const found = [[NSRunningApplication alloc] init];
    found->identifier_ = identifier;
    return @[ found, [[NSRunningApplication alloc] init] ];
}

- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options
{
    ask("activate " + plain(identifier_) + (options != 0 ? " with options" : ""));
    return shared->desktop.running[plain(identifier_)];
}

@end

@implementation NSWorkspace

+ (NSWorkspace*)sharedWorkspace
{
    return shared->workspace;
}

- (NSNotificationCenter*)notificationCenter
{
    return workspaceNotificationCenter();
}

- (BOOL)openURL:(NSURL*)url
{
    ask("url " + plain(url.absoluteString));
    return YES;
}

- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)identifier
{
    const auto found = shared->desktop.installed.find(plain(identifier));
    if (found == shared->desktop.installed.end()) return nil;
    return [NSURL fileURLWithPath:text(found->second) isDirectory:YES];
}

- (void)openApplicationAtURL:(NSURL*)application
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^)(NSRunningApplication*, NSError*))done
{
    ask("open " + plain(application.path) + manner(configuration) + (done ? " and wait" : ""));
}

- (void)openURLs:(NSArray<NSURL*>*)urls
    withApplicationAtURL:(NSURL*)application
           configuration:(NSWorkspaceOpenConfiguration*)configuration
       completionHandler:(void (^)(NSRunningApplication*, NSError*))done
{
    for (NSURL* const url in urls)
        ask("open " + plain(url.absoluteString) + " with " + plain(application.path) + manner(configuration) +
            (done ? " and wait" : ""));
}

- (BOOL)isFilePackageAtPath:(NSString*)path
{
    if (onMainThread()) std::abort(); // it looks at the disk
    return plain(path).ends_with(".app");
}

- (void)activateFileViewerSelectingURLs:(NSArray<NSURL*>*)urls
{
    for (NSURL* const url in urls)
        ask("select " + plain(url.absoluteString));
}

@end

@implementation NSApplication

+ (NSApplication*)sharedApplication
{
    return shared->sharedApplication;
}

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy
{
    requireMainThread("-[NSApplication setActivationPolicy:]");
    shared->application.push_back(policy == NSApplicationActivationPolicyRegular     ? "regular"
                                  : policy == NSApplicationActivationPolicyAccessory ? "accessory"
                                                                                     : "prohibited");
    return YES;
}

- (void)activateIgnoringOtherApps:(BOOL)ignoreOthers
{
    requireMainThread("-[NSApplication activateIgnoringOtherApps:]");
    shared->application.push_back(ignoreOthers ? "activate" : "activate if nobody minds");
}

@end

namespace chimewell::test::mac {

DesktopRecord& desktop()
{
    return shared->desktop;
}

std::vector<std::string>& applicationRecord()
{
    return shared->application;
}

}
