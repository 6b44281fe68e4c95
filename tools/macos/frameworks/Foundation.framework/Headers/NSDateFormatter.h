// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSObject.h>

@class NSDate;
@class NSTimeZone;

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSUInteger, NSDateFormatterStyle) {
    NSDateFormatterNoStyle = 0,
    NSDateFormatterShortStyle = 1,
};

@interface NSFormatter : NSObject
@end

@interface NSDateFormatter : NSFormatter
- (NSString*)stringFromDate:(NSDate*)date;
@property NSDateFormatterStyle dateStyle;
@property NSDateFormatterStyle timeStyle;
@property (null_resettable, copy) NSTimeZone* timeZone;
@end

#pragma clang assume_nonnull end
