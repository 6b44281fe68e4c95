// SPDX-License-Identifier: MIT
#pragma once

// The part of CoreServices that we use, declared by hand for checking on other systems.

#include <CoreFoundation/CoreFoundation.h>

typedef UInt32 OSType;
typedef OSType AEEventClass;
typedef OSType AEEventID;
typedef OSType AEKeyword;

enum {
    kCoreEventClass = 'aevt',
    kAEReopenApplication = 'rapp',
    kAEQuitApplication = 'quit',
    kInternetEventClass = 'GURL',
    kAEGetURL = 'GURL',
    keyDirectObject = '----',
    kAEQuitReason = 'why?',
    kAELogOut = 'logo',
    kAEReallyLogOut = 'rlgo',
    kAERestart = 'rest',
    kAEShutDown = 'shut',
};

typedef CF_OPTIONS(UInt32, LSLaunchFlags) { kLSLaunchDontAddToRecents = 0x00000100, kLSLaunchDontSwitch = 0x00000200, kLSLaunchAsync = 0x00010000 };

#pragma pack(push, 2)
struct LSLaunchURLSpec {
    CFURLRef appURL;
    CFArrayRef itemURLs;
    const struct AEDesc* passThruParams;
    LSLaunchFlags launchFlags;
    void* asyncRefCon;
};
#pragma pack(pop)

extern "C" OSStatus LSOpenFromURLSpec(const LSLaunchURLSpec* launch, CFURLRef* launched); // 10.0
