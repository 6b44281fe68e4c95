// SPDX-License-Identifier: MIT
#pragma once

#import <AppKit/NSRunningApplication.h>

#pragma clang assume_nonnull begin

NS_EXTERN const NSNotificationName NSWorkspaceDidWakeNotification;

@interface NSWorkspaceOpenConfiguration : NSObject <NSCopying> // 10.15
+ (instancetype)configuration;
@property BOOL activates;
@end

@interface NSWorkspace : NSObject
@property (class, readonly, strong) NSWorkspace* sharedWorkspace;
@property (readonly, strong) NSNotificationCenter* notificationCenter;
- (BOOL)openURL:(NSURL*)url;
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^_Nullable)(NSRunningApplication* _Nullable app,
                                                NSError* _Nullable error))completionHandler; // 10.15
- (void)openURLs:(NSArray<NSURL*>*)urls
    withApplicationAtURL:(NSURL*)applicationURL
           configuration:(NSWorkspaceOpenConfiguration*)configuration
       completionHandler:(void (^_Nullable)(NSRunningApplication* _Nullable app,
                                            NSError* _Nullable error))completionHandler; // 10.15
- (BOOL)isFilePackageAtPath:(NSString*)fullPath;
- (void)activateFileViewerSelectingURLs:(NSArray<NSURL*>*)fileURLs;
@end

#pragma clang assume_nonnull end
