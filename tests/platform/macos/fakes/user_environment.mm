// SPDX-License-Identifier: MIT
#include "fakes/user_environment.h"

#include "fakes/per_test.h"
#include "fakes/text.h"

#import <Foundation/Foundation.h>

#include <sstream>

using namespace chimewell::test::mac;

namespace {

struct Shared {
    UserEnvironment environment;
    NSLocale* locale = [[NSLocale alloc] init];
    NSBundle* bundle = [[NSBundle alloc] init];
    NSFileManager* files = [[NSFileManager alloc] init];
    NSTimeZone* localTimeZone = [[NSTimeZone alloc] init];
};

PerTest<Shared> shared;

}

NSString* NSHomeDirectory(void)
{
    return text(shared->environment.home);
}

@implementation NSLocale

+ (NSLocale*)currentLocale
{
    return shared->locale;
}

@end

@implementation NSTimeZone

+ (NSTimeZone*)localTimeZone
{
    return shared->localTimeZone;
}

- (id)copyWithZone:(struct _NSZone*)zone
{
    return self;
}

@end

@implementation NSFormatter
@end

/// Shows what it was asked for, as the real one's words depend on the system's version.
@implementation NSDateFormatter {
    NSTimeZone* timeZone_;
}

@synthesize dateStyle, timeStyle;

- (NSTimeZone*)timeZone
{
    return timeZone_;
}

- (void)setTimeZone:(NSTimeZone*)zone
{
    timeZone_ = zone ? zone : shared->localTimeZone;
}

- (NSString*)stringFromDate:(NSDate*)date
{
    std::ostringstream shown;
    shown << "date " << self.dateStyle << " time " << self.timeStyle
          << (self.timeZone == shared->localTimeZone ? " local" : "") << " at " << date.timeIntervalSince1970;
    return text(shown.str());
}

@end

@implementation NSRelativeDateTimeFormatter

@synthesize dateTimeStyle, unitsStyle;

- (NSString*)localizedStringForDate:(NSDate*)date relativeToDate:(NSDate*)reference
{
    std::ostringstream shown;
    shown << "style " << self.dateTimeStyle << " units " << self.unitsStyle << " after "
          << date.timeIntervalSince1970 - reference.timeIntervalSince1970;
    return text(shown.str());
}

@end

@implementation NSFileManager

+ (NSFileManager*)defaultManager
{
    return shared->files;
}

- (NSURL*)URLForDirectory:(NSSearchPathDirectory)directory
                 inDomain:(NSSearchPathDomainMask)domain
        appropriateForURL:(NSURL*)url
                   create:(BOOL)create
                    error:(NSError**)error
{
    const auto& folder = shared->environment.applicationSupport;
    if (directory != NSApplicationSupportDirectory || domain != NSUserDomainMask || url || !create || !folder)
        return nil;
    return [NSURL fileURLWithPath:text(*folder) isDirectory:YES];
}

@end

@implementation NSBundle

+ (NSBundle*)mainBundle
{
    return shared->bundle;
}

- (NSString*)bundleIdentifier
{
    const auto& identifier = shared->environment.bundleIdentifier;
    return identifier ? text(*identifier) : nil;
}

- (NSString*)pathForResource:(NSString*)name ofType:(NSString*)extension
{
    const auto& resources = shared->environment.resources;
    const auto found = resources.find(plain(name) + (extension ? "." + plain(extension) : ""));
    return found == resources.end() ? nil : text(found->second);
}

@end

namespace chimewell::test::mac {

UserEnvironment& userEnvironment()
{
    return shared->environment;
}

}
