// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

@interface NSResponder : NSObject
@end
