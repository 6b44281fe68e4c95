// SPDX-License-Identifier: MIT
#pragma once

// The part of AppKit that we use, declared by hand for checking on other systems. Beside each declaration
// stands the first macOS that has it, where that is later than 10.10; where it is later than 13, as an
// attribute, so that the compiler refuses an unguarded use. Superclasses between a class and NSObject that we
// do not use are left out, and what is inherited from them stands with the class.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NS_OPTIONS(NSUInteger, NSApplicationActivationOptions) {};

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular,
    NSApplicationActivationPolicyAccessory,
};

@interface NSRunningApplication : NSObject
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:(NSString*)bundleIdentifier;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
@property (class, readonly, strong) NSRunningApplication* currentApplication;
- (BOOL)activateFromApplication:(NSRunningApplication*)application options:(NSApplicationActivationOptions)options __attribute__((availability(macos, introduced = 14.0)));
@end

NS_EXTERN const NSNotificationName NSApplicationDidBecomeActiveNotification;
NS_EXTERN const NSNotificationName NSApplicationDidFinishLaunchingNotification;
NS_EXTERN const NSNotificationName NSApplicationWillFinishLaunchingNotification;

@interface NSApplication : NSObject
@property (class, readonly, strong) NSApplication* sharedApplication;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;
// Not deprecated before 14, which has a request that other applications may refuse in its place.
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps;
- (void)yieldActivationToApplication:(NSRunningApplication*)application __attribute__((availability(macos, introduced = 14.0)));
@end

NS_EXTERN const NSNotificationName NSWorkspaceDidWakeNotification;

@interface NSWorkspaceOpenConfiguration : NSObject // 10.15
+ (instancetype)configuration;
@property BOOL activates;
@end

@interface NSWorkspace : NSObject
@property (class, readonly, strong) NSWorkspace* sharedWorkspace;
@property (readonly, strong) NSNotificationCenter* notificationCenter;
- (BOOL)openURL:(NSURL*)url;
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
- (void)openApplicationAtURL:(NSURL*)applicationURL configuration:(NSWorkspaceOpenConfiguration*)configuration completionHandler:(void (^_Nullable)(NSRunningApplication* _Nullable app, NSError* _Nullable error))completionHandler; // 10.15
- (void)openURLs:(NSArray<NSURL*>*)urls withApplicationAtURL:(NSURL*)applicationURL configuration:(NSWorkspaceOpenConfiguration*)configuration completionHandler:(void (^_Nullable)(NSRunningApplication* _Nullable app, NSError* _Nullable error))completionHandler; // 10.15
- (BOOL)isFilePackageAtPath:(NSString*)fullPath;
- (void)activateFileViewerSelectingURLs:(NSArray<NSURL*>*)fileURLs;
@end

@interface NSSound : NSObject
+ (nullable NSSound*)soundNamed:(NSString*)name;
- (BOOL)play;
- (BOOL)stop;
@property (readonly, getter=isPlaying) BOOL playing;
@end

@interface NSImage : NSObject
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)name accessibilityDescription:(nullable NSString*)description; // 11.0
@property (readonly) NSSize size;
// Not as a property, the name of which is a keyword of C++.
- (void)setTemplate:(BOOL)isTemplate;
- (void)drawInRect:(NSRect)rect;
@end

NS_EXTERN NSString* const NSDeviceRGBColorSpace;

@interface NSBitmapImageRep : NSObject
- (nullable instancetype)initWithBitmapDataPlanes:(unsigned char* _Nullable* _Nullable)planes
    pixelsWide:(NSInteger)width pixelsHigh:(NSInteger)height bitsPerSample:(NSInteger)bps
    samplesPerPixel:(NSInteger)spp hasAlpha:(BOOL)alpha isPlanar:(BOOL)isPlanar
    colorSpaceName:(NSString*)colorSpaceName bytesPerRow:(NSInteger)rBytes bitsPerPixel:(NSInteger)pBits;
@property (nullable, readonly) unsigned char* bitmapData;
@end

@interface NSGraphicsContext : NSObject
+ (nullable NSGraphicsContext*)graphicsContextWithBitmapImageRep:(NSBitmapImageRep*)bitmapRep;
@property (class, nullable, strong) NSGraphicsContext* currentContext;
+ (void)saveGraphicsState;
+ (void)restoreGraphicsState;
@end

@interface NSScreen : NSObject
@property (class, readonly, copy) NSArray<NSScreen*>* screens; // the primary one first
@property (readonly) NSRect frame;
@end

@interface NSWindow : NSObject
- (NSRect)convertRectToScreen:(NSRect)rect;
@end

typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskLeftMouseUp = 1ULL << 2,  // 10.12
    NSEventMaskRightMouseUp = 1ULL << 4, // 10.12
};

@class NSView;

@interface NSStatusBarButton : NSObject
@property (nullable, readonly, assign) NSWindow* window;
@property NSRect bounds;
- (NSRect)convertRect:(NSRect)rect toView:(nullable NSView*)view;
@property (nullable, copy) NSString* toolTip;
@property (nullable, copy) NSString* accessibilityLabel;
@property (nullable, weak) id target;
@property (nullable) SEL action;
- (NSInteger)sendActionOn:(NSEventMask)mask;
@property (nullable, strong) NSImage* image;
@end

@interface NSStatusItem : NSObject
@property (nullable, readonly, strong) NSStatusBarButton* button;
@end

static const CGFloat NSVariableStatusItemLength = -1.0;

@interface NSStatusBar : NSObject
@property (class, readonly, strong) NSStatusBar* systemStatusBar;
- (NSStatusItem*)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem*)item;
@end

#pragma clang assume_nonnull end
