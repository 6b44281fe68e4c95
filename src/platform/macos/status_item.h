// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace chimewell {

/// In points, from the top left corner of the primary screen downwards.
struct ScreenRectangle {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    bool operator==(const ScreenRectangle&) const = default;
};

/// Our icon in the menu bar, for as long as this object lives. Main thread only.
class StatusItem {
public:
    /// `clicked` runs on a click of either button and gets the place of the icon.
    explicit StatusItem(std::function<void(const ScreenRectangle& icon)> clicked);
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    ~StatusItem();

    /// Shows the system symbol of that name, in the menu bar's own colour. `label` is what a screen reader
    /// says.
    void setSymbol(const std::string& name, const std::string& label);
    void setToolTip(const std::string& text);
    /// Where the icon is now.
    ScreenRectangle place() const;

private:
    struct Item;
    std::unique_ptr<Item> item_;
};

}
