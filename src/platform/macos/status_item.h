// SPDX-License-Identifier: MIT
#pragma once

#include "ports/status_icon.h"

#include <memory>

namespace chimewell {

/// The icon in the menu bar. A click of either button counts. Main thread only.
class StatusItem final : public StatusIcon {
public:
    StatusItem();
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    ~StatusItem() override;

    /// In the menu bar's own colour.
    void show(const StatusIconState& state) override;
    void setHandlers(Handlers handlers) override;
    /// Empty until the menu bar has made room.
    ScreenArea place() const;

private:
    struct Item;
    std::unique_ptr<Item> item_;
};

}
