// SPDX-License-Identifier: MIT
#pragma once

typedef unsigned int FourCharCode;
typedef FourCharCode OSType;
typedef FourCharCode AEEventClass;
typedef FourCharCode AEEventID;
typedef FourCharCode AEKeyword;

enum {
    kCoreEventClass = 'aevt',
    kAEReopenApplication = 'rapp',
    kAEQuitApplication = 'quit',
};

enum {
    kInternetEventClass = 'GURL',
    kAEGetURL = 'GURL',
};

enum {
    keyDirectObject = '----',
    kAEQuitReason = 'why?',
};

enum {
    kAELogOut = 'logo',
    kAEReallyLogOut = 'rlgo',
    kAERestart = 'rest',
    kAEShutDown = 'shut',
};
