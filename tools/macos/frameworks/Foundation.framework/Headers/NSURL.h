// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSString.h>

#pragma clang assume_nonnull begin

@interface NSURL : NSObject <NSCopying>
+ (NSURL*)fileURLWithPath:(NSString*)path isDirectory:(BOOL)isDir;
+ (nullable instancetype)URLWithString:(NSString*)URLString;
@property (nullable, readonly, copy) NSString* absoluteString;
@property (nullable, readonly, copy) NSString* path;
@end

#pragma clang assume_nonnull end
