// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

namespace chimewell::test::mac {

/// The applications of the Mac, and what was asked of its desktop.
struct DesktopRecord {
    std::map<std::string, std::string> installed; ///< Paths of applications by bundle identifier.
    std::map<std::string, bool> running;          ///< By bundle identifier: whether it obeys when activated.
    /// What was asked, as "open /Applications/kitty.app activating", "open file:///x with ... activating",
    /// "activate com.x", "select file:///x" or "url x:y".
    std::vector<std::string> asked;
};

DesktopRecord& desktop();

/// What our own application was told, as "accessory", "regular" or "activate".
std::vector<std::string>& applicationRecord();

}
