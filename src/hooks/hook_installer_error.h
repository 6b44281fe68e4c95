// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <cstdint>

namespace chimewell {

/// Why an agent's file was left as it is.
struct HookInstallerError {
    enum class Kind : std::uint8_t { settingsUnparseable, ioError, helperMissing, noBackup };

    Kind kind = Kind::ioError;
    Phrase detail = {}; ///< The file's path, or the whole message where the kind does not tell it.
    bool operator==(const HookInstallerError&) const = default;

    /// The sentence that the user reads.
    Phrase description() const;
};

}
