// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NSString* NSSoundName;

@interface NSSound : NSObject <NSCopying>
+ (nullable NSSound*)soundNamed:(NSSoundName)name;
- (BOOL)play;
- (BOOL)stop;
@property (readonly, getter=isPlaying) BOOL playing;
@end

#pragma clang assume_nonnull end
