// SPDX-License-Identifier: MIT
#include "hooks/hook_installer_error.h"

#include "values/texts.h"

namespace chimewell {

Phrase HookInstallerError::description() const
{
    switch (kind) {
    case Kind::settingsUnparseable:
        return {texts::notJson, {detail}};
    case Kind::helperMissing:
        return detail == Phrase() ? Phrase(texts::helperMissing) : detail;
    case Kind::noBackup:
        return texts::noBackup;
    case Kind::ioError:
        break;
    }
    return detail;
}

}
