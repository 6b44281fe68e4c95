// SPDX-License-Identifier: MIT
#pragma once

#include "ports/login_item.h"

namespace chimewell::test {

/// A login item that is what it was told to be, unless it refuses.
class RecordingLoginItem : public LoginItem {
public:
    bool isEnabled() const override { return enabled; }
    std::expected<void, Phrase> registerItem() override { return set(true); }
    std::expected<void, Phrase> unregisterItem() override { return set(false); }

    bool enabled = false;
    bool refuses = false;

private:
    std::expected<void, Phrase> set(bool wanted)
    {
        if (refuses) return std::unexpected(std::string("Operation not permitted"));
        enabled = wanted;
        return {};
    }
};

}
