// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "values/auth_status.h"

namespace chimewell {

/// What we say about the permission to show banners.
Text permissionText(AuthStatus status);

}
