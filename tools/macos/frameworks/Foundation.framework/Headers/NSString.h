// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSObject.h>

#pragma clang assume_nonnull begin

typedef NSUInteger NSStringEncoding;
enum : NSStringEncoding {
    NSUTF8StringEncoding = 4,
};

@interface NSString : NSObject <NSCopying>
- (nullable instancetype)initWithBytes:(const void*)bytes
                                length:(NSUInteger)len
                              encoding:(NSStringEncoding)encoding;
- (BOOL)isEqualToString:(NSString*)aString;
@property (readonly) NSUInteger length;
@property (nullable, readonly) const char* UTF8String;
@end

#pragma clang assume_nonnull end
