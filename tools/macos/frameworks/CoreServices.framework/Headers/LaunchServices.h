// SPDX-License-Identifier: MIT
#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef struct AEDesc AEDesc;

typedef UInt32 LSLaunchFlags;
enum {
    kLSLaunchDontAddToRecents = 0x00000100,
    kLSLaunchDontSwitch = 0x00000200,
    kLSLaunchAsync = 0x00010000,
};

#pragma pack(push, 2)
struct LSLaunchURLSpec {
    CFURLRef appURL;
    CFArrayRef itemURLs;
    const AEDesc* passThruParams;
    LSLaunchFlags launchFlags;
    void* asyncRefCon;
};
#pragma pack(pop)
typedef struct LSLaunchURLSpec LSLaunchURLSpec;

extern "C" OSStatus LSOpenFromURLSpec(const LSLaunchURLSpec* launch, CFURLRef* launched); // 10.0
