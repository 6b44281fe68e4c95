// SPDX-License-Identifier: MIT
#pragma once

// The part of CoreServices that we use, declared by hand for checking on other systems.

#include <CoreServices/AppleEvents.h>
#include <CoreServices/LaunchServices.h>
