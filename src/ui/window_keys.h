// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QWidget;

namespace chimewell {

/// The keys of every window: Ctrl+W closes it, Ctrl+comma opens the settings, Ctrl+Q quits; Alt and an
/// underlined letter press a button.
struct WindowKeys {
    std::function<void()> openSettings;
    std::function<void()> quit;

    void addTo(QWidget* window) const;
};

}
