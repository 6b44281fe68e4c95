// SPDX-License-Identifier: MIT
#include "hooks/hook_installer_error.h"

namespace chimewell {

std::string HookInstallerError::description() const
{
    switch (kind) {
    case Kind::settingsUnparseable:
        return "The existing settings file at " + detail +
               " is not valid JSON. Refusing to modify it to avoid data loss. Please fix or remove it, then "
               "try "
               "again.";
    case Kind::helperMissing:
        return "The bundled chimewell-hook helper could not be found inside the app bundle.";
    case Kind::noBackup:
        return "No Chimewell backup was found to restore from.";
    case Kind::ioError:
        break;
    }
    return detail;
}

}
