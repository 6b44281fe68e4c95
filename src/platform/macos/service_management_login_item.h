// SPDX-License-Identifier: MIT
#pragma once

#include "ports/login_item.h"

namespace chimewell {

/// Start at log-in by SMAppService, for the application bundle itself.
class ServiceManagementLoginItem final : public LoginItem {
public:
    bool isEnabled() const override;
    std::expected<void, Phrase> registerItem() override;
    std::expected<void, Phrase> unregisterItem() override;
};

}
