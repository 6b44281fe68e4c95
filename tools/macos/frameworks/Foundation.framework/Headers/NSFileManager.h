// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/NSPathUtilities.h>

@class NSError;
@class NSURL;

#pragma clang assume_nonnull begin

@interface NSFileManager : NSObject
@property (class, readonly, strong) NSFileManager* defaultManager;
- (nullable NSURL*)URLForDirectory:(NSSearchPathDirectory)directory
                          inDomain:(NSSearchPathDomainMask)domain
                 appropriateForURL:(nullable NSURL*)url
                            create:(BOOL)shouldCreate
                             error:(NSError* _Nullable* _Nullable)error;
@end

#pragma clang assume_nonnull end
