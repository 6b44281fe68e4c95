// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

@interface NSError (Fakes)
+ (instancetype)errorWithDescription:(NSString*)description;
@end
