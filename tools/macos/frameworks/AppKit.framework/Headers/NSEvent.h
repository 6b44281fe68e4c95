// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskLeftMouseUp = 1ULL << 2,  // 10.12
    NSEventMaskRightMouseUp = 1ULL << 4, // 10.12
};
