// SPDX-License-Identifier: MIT
#pragma once

#import <CoreServices/CoreServices.h>
#import <Foundation/NSString.h>

#pragma clang assume_nonnull begin

@interface NSAppleEventDescriptor : NSObject <NSCopying>
@property (readonly) OSType enumCodeValue;
@property (readonly) OSType typeCodeValue;
@property (nullable, readonly, copy) NSString* stringValue;
@property (readonly) AEEventClass eventClass;
@property (readonly) AEEventID eventID;
- (nullable NSAppleEventDescriptor*)paramDescriptorForKeyword:(AEKeyword)keyword;
- (nullable NSAppleEventDescriptor*)attributeDescriptorForKeyword:(AEKeyword)keyword;
@end

#pragma clang assume_nonnull end
