// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>

namespace chimewell::test::mac {

/// A system symbol, which draws itself as a full upper half over a half transparent lower one.
struct Symbol {
    double width = 0;
    double height = 0;
};

/// The symbols of the system, by name.
std::map<std::string, Symbol>& symbols();

struct SymbolImage {
    std::string name;
    std::optional<std::string> description;
    bool isTemplate = false;
};

/// What is known of an NSImage; nothing for nil.
std::optional<SymbolImage> symbolImage(void* image);

}
