// SPDX-License-Identifier: MIT
#pragma once

// The part of Foundation that we use, declared by hand for checking on other systems. Beside each declaration
// stands the first macOS that has it, where that is later than 10.10.

#import <CoreServices/CoreServices.h>

#if __OBJC_BOOL_IS_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#define YES __objc_yes
#define NO __objc_no
#ifndef nil
#define nil nullptr
#endif

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef double NSTimeInterval;
typedef double CGFloat;

#define NS_EXTERN extern "C" __attribute__((visibility("default")))

#define NS_OPTIONS CF_OPTIONS
#define NS_ENUM(type, name)                                                                                  \
    enum __attribute__((enum_extensibility(open))) name : type name;                                         \
    enum name : type

#pragma clang assume_nonnull begin

@protocol NSObject
- (BOOL)isKindOfClass:(Class)aClass;
@end

@protocol NSCopying
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
    Class isa; // the instance variables of subclasses follow it
}
+ (instancetype)alloc;
+ (Class)class;
- (instancetype)init;
- (id)copy;
@end

struct CGPoint { CGFloat x; CGFloat y; };
struct CGSize { CGFloat width; CGFloat height; };
struct CGRect { CGPoint origin; CGSize size; };
typedef CGSize NSSize;
typedef CGRect NSRect;

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };

@interface NSString : NSObject <NSCopying>
- (nullable instancetype)initWithBytes:(const void*)bytes length:(NSUInteger)len encoding:(NSStringEncoding)encoding;
- (BOOL)isEqualToString:(NSString*)aString;
@property (nullable, readonly) const char* UTF8String;
@end

@interface NSError : NSObject
@property (readonly, copy) NSString* localizedDescription;
@end

// The compiler turns for-in loops into calls of this.
typedef struct {
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;

@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer count:(NSUInteger)len;
@end

@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
// The compiler calls this for @[].
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nullable])objects count:(NSUInteger)cnt;
@property (nullable, nonatomic, readonly) ObjectType firstObject;
@end

@interface NSSet<__covariant ObjectType> : NSObject
+ (instancetype)setWithObject:(ObjectType)object;
@end

@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject <NSFastEnumeration>
// The compiler calls this for dictionary[key].
- (nullable ObjectType)objectForKeyedSubscript:(KeyType)key;
@end

@interface NSMutableDictionary<KeyType, ObjectType> : NSDictionary <KeyType, ObjectType>
// The compiler calls this for dictionary[key] = object.
- (void)setObject:(nullable ObjectType)obj forKeyedSubscript:(KeyType<NSCopying>)key;
@end

@interface NSDate : NSObject
+ (instancetype)dateWithTimeIntervalSince1970:(NSTimeInterval)secs;
+ (instancetype)dateWithTimeIntervalSinceNow:(NSTimeInterval)secs;
@end

@interface NSTimeZone : NSObject
@property (class, readonly, copy) NSTimeZone* localTimeZone;
@end

typedef NS_ENUM(NSUInteger, NSDateFormatterStyle) { NSDateFormatterNoStyle = 0, NSDateFormatterShortStyle = 1 };

@interface NSDateFormatter : NSObject
- (NSString*)stringFromDate:(NSDate*)date;
@property NSDateFormatterStyle dateStyle;
@property NSDateFormatterStyle timeStyle;
@property (null_resettable, copy) NSTimeZone* timeZone;
@end

typedef NS_ENUM(NSInteger, NSRelativeDateTimeFormatterStyle) { NSRelativeDateTimeFormatterStyleNamed = 1 }; // 10.15

typedef NS_ENUM(NSInteger, NSRelativeDateTimeFormatterUnitsStyle) { // 10.15
    NSRelativeDateTimeFormatterUnitsStyleFull = 0,
    NSRelativeDateTimeFormatterUnitsStyleShort = 2,
};

@interface NSRelativeDateTimeFormatter : NSObject // 10.15
@property NSRelativeDateTimeFormatterStyle dateTimeStyle;
@property NSRelativeDateTimeFormatterUnitsStyle unitsStyle;
- (NSString*)localizedStringForDate:(NSDate*)date relativeToDate:(NSDate*)referenceDate;
@end

@interface NSURL : NSObject
+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)isDir;
+ (nullable instancetype)URLWithString:(NSString*)URLString;
@property (nullable, readonly, copy) NSString* path;
@end

typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) { NSApplicationSupportDirectory = 14 };

typedef NS_OPTIONS(NSUInteger, NSSearchPathDomainMask) { NSUserDomainMask = 1 };

NS_EXTERN NSString* NSHomeDirectory(void);

@interface NSFileManager : NSObject
@property (class, readonly, strong) NSFileManager* defaultManager;
- (nullable NSURL*)URLForDirectory:(NSSearchPathDirectory)directory inDomain:(NSSearchPathDomainMask)domain appropriateForURL:(nullable NSURL*)url create:(BOOL)shouldCreate error:(NSError* _Nullable* _Nullable)error;
@end

@interface NSBundle : NSObject
@property (class, readonly, strong) NSBundle* mainBundle;
- (nullable NSString*)pathForResource:(nullable NSString*)name ofType:(nullable NSString*)ext;
@property (nullable, readonly, copy) NSString* bundleIdentifier;
@end

typedef NS_OPTIONS(unsigned long long, NSActivityOptions) { NSActivityUserInitiatedAllowingIdleSystemSleep = 0xEFFFFFULL };

@interface NSProcessInfo : NSObject
@property (class, readonly, strong) NSProcessInfo* processInfo;
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason;
- (void)endActivity:(id<NSObject>)activity;
@end

@interface NSOperationQueue : NSObject
@property (class, readonly, strong) NSOperationQueue* mainQueue;
- (void)addOperationWithBlock:(void (^)(void))block;
@end

typedef NSString* NSNotificationName;

@interface NSNotification : NSObject
@end

@interface NSNotificationCenter : NSObject
@property (class, readonly, strong) NSNotificationCenter* defaultCenter;
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name object:(nullable id)obj queue:(nullable NSOperationQueue*)queue usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer;
@end

@interface NSTimer : NSObject
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval repeats:(BOOL)repeats block:(void (^)(NSTimer* timer))block; // 10.12
- (void)invalidate;
@end

NS_EXTERN NSString* const NSRunLoopCommonModes;

@interface NSRunLoop : NSObject
@property (class, readonly, strong) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSString*)mode;
- (void)runUntilDate:(NSDate*)limitDate;
@end

@interface NSAppleEventDescriptor : NSObject
@property (readonly) OSType enumCodeValue;
@property (readonly) OSType typeCodeValue;
@property (nullable, readonly, copy) NSString* stringValue;
- (nullable NSAppleEventDescriptor*)paramDescriptorForKeyword:(AEKeyword)keyword;
- (nullable NSAppleEventDescriptor*)attributeDescriptorForKeyword:(AEKeyword)keyword;
@end

@interface NSAppleEventManager : NSObject
+ (NSAppleEventManager*)sharedAppleEventManager;
- (void)setEventHandler:(id)handler andSelector:(SEL)handleEventSelector forEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
- (void)removeEventHandlerForEventClass:(AEEventClass)eventClass andEventID:(AEEventID)eventID;
@end

#pragma clang assume_nonnull end
