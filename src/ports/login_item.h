// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

#include <expected>

namespace chimewell {

/// Whether the system starts the application when the user logs in.
class LoginItem {
public:
    virtual ~LoginItem() = default;
    /// What the system will do at the next log-in, whatever we asked for.
    virtual bool isEnabled() const = 0;
    /// The error is the system's text.
    virtual std::expected<void, Phrase> registerItem() = 0;
    virtual std::expected<void, Phrase> unregisterItem() = 0;
};

}
