// SPDX-License-Identifier: MIT
#include "presentation/permission.h"

#include "values/texts.h"

namespace chimewell {

Text permissionText(AuthStatus status)
{
    switch (status) {
    case AuthStatus::authorized:
        return texts::allowed;
    case AuthStatus::provisional:
        return texts::allowedProvisional;
    case AuthStatus::denied:
        return texts::denied;
    case AuthStatus::notDetermined:
        return texts::notRequested;
    case AuthStatus::unavailable:
        break;
    }
    return texts::unavailable;
}

}
