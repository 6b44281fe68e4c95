// SPDX-License-Identifier: MIT
#pragma once

// The part of ServiceManagement that we use, declared by hand for checking on other systems. All of it is
// there since macOS 13.0.

#import <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

typedef NS_ENUM(NSInteger, SMAppServiceStatus) { SMAppServiceStatusEnabled = 1 };

@interface SMAppService : NSObject
@property (class, readonly) SMAppService* mainAppService;
@property (readonly) SMAppServiceStatus status;
- (BOOL)registerAndReturnError:(NSError* _Nullable* _Nullable)error;
- (BOOL)unregisterAndReturnError:(NSError* _Nullable* _Nullable)error;
@end

#pragma clang assume_nonnull end
