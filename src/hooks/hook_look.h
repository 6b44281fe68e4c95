// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/hook_install_status.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace chimewell {

/// Why installing again would do the user good.
enum class HookUpdate : std::uint8_t {
    otherHelper,   ///< An entry calls a helper at another place than ours; it may be gone.
    reminderHooks, ///< The entries that end the reminders are missing.
    olderVersion,  ///< An older build wrote the entries.
};

/// What an agent's file and its backups say about our hooks.
struct HookLook {
    HookInstallStatus status = {};
    std::optional<HookUpdate> update = std::nullopt;
    /// A program chain of the user's own calls our helper; it is not ours to change.
    bool isUsersChain = false;
    /// The oldest backup is from before our first change.
    bool offersRestore = false;
    std::size_t fingerprint = 0; ///< Of the file's content.
};

}
