// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace chimewell::test::mac {

using FourCharacters = std::uint32_t;

/// An Apple event as the system delivers it.
struct AppleEvent {
    FourCharacters eventClass = 0;
    FourCharacters eventId = 0;
    std::optional<std::string> directObject = std::nullopt; ///< A text.
    std::optional<FourCharacters> quitReason = std::nullopt;
    bool reasonIsAttribute = true;    ///< Else it is a parameter.
    bool reasonIsEnumeration = false; ///< Else it is a type code.
};

/// Delivers the event to the handler registered for it; false when there is none.
bool deliver(const AppleEvent& event);
/// Runs `body` while the event is the current one, as when the toolkit handles it.
void whileHandling(const AppleEvent& event, const std::function<void()>& body);
/// Takes a class and an identifier as the toolkit does when it launches; its handler ignores all.
void registerToolkitHandler(FourCharacters eventClass, FourCharacters eventId);

}
