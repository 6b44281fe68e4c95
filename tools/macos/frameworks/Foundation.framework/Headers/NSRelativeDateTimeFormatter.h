// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSDateFormatter.h>

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSInteger, NSRelativeDateTimeFormatterStyle) { // 10.15
    NSRelativeDateTimeFormatterStyleNumeric = 0,
    NSRelativeDateTimeFormatterStyleNamed,
};

typedef NS_ENUM(NSInteger, NSRelativeDateTimeFormatterUnitsStyle) { // 10.15
    NSRelativeDateTimeFormatterUnitsStyleFull = 0,
    NSRelativeDateTimeFormatterUnitsStyleSpellOut,
    NSRelativeDateTimeFormatterUnitsStyleShort,
    NSRelativeDateTimeFormatterUnitsStyleAbbreviated,
};

@interface NSRelativeDateTimeFormatter : NSFormatter // 10.15
@property NSRelativeDateTimeFormatterStyle dateTimeStyle;
@property NSRelativeDateTimeFormatterUnitsStyle unitsStyle;
- (NSString*)localizedStringForDate:(NSDate*)date relativeToDate:(NSDate*)referenceDate;
@end

#pragma clang assume_nonnull end
