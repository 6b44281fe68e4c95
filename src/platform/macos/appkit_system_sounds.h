// SPDX-License-Identifier: MIT
#pragma once

#include "ports/system_sounds.h"

namespace chimewell {

/// The named sounds that come with macOS, by NSSound.
class AppKitSystemSounds final : public SystemSounds {
public:
    /// The sound may outlive this object.
    std::unique_ptr<Sound> named(std::string_view name) override;
};

}
