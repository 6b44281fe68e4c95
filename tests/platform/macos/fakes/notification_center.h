// SPDX-License-Identifier: MIT
#pragma once

#ifdef __OBJC__
@class NSNotificationCenter;
#endif

namespace chimewell::test::mac {

// What the system tells the application's objects, each told before the call returns. Waking is told by the
// workspace's own centre; an observer at the default one hears nothing of it.
void applicationWillFinishLaunching();
void applicationDidBecomeActive();
void machineDidWake();

#ifdef __OBJC__
/// The workspace's own centre.
NSNotificationCenter* workspaceNotificationCenter();
#endif

}
