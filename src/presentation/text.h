// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell {

/// Whose words the interface uses for the parts of the system: chosen when the application is put together.
enum class Wording : std::uint8_t { macOS, linuxDesktop };

/// One text of the interface in English, which is also its key in the translations. `%1`, `%2` stand for
/// arguments and `%n` for a count.
///
/// The names `Text`, `onLinux` and `many` are what the translation tools look for (cmake/translations.cmake).
class Text {
public:
    constexpr explicit Text(const char* english) : macOS_(english), linux_(english) {}
    /// The same in the words of a Linux desktop.
    constexpr Text onLinux(const char* english) const
    {
        Text text = *this;
        text.linux_ = english;
        return text;
    }
    /// The form for every count but one; `context` is where the translations keep it.
    constexpr Text many([[maybe_unused]] const char* context, const char* english) const
    {
        Text text = *this;
        text.many_ = english;
        return text;
    }

    constexpr const char* in(Wording wording) const { return wording == Wording::macOS ? macOS_ : linux_; }
    constexpr const char* many() const { return many_; } ///< Null for a text that counts nothing.

private:
    const char* macOS_;
    const char* linux_;
    const char* many_ = nullptr;
};

/// A text with what has to be put into it.
struct Phrase {
    Phrase(Text words) : text(words) {} // NOLINT(google-explicit-constructor): most phrases are just a text
    Phrase(Text words, std::vector<std::string> values) : text(words), arguments(std::move(values)) {}
    Phrase(Text words, std::int64_t number) : text(words), count(number) {}

    Text text;
    std::vector<std::string> arguments;
    std::optional<std::int64_t> count;
};

/// The phrase in English.
std::string english(const Phrase& phrase, Wording wording = Wording::macOS);
/// `format` with `%n` and `%1`, `%2`, … replaced; what the arguments hold is not looked at again.
std::string filled(const std::string& format, const Phrase& phrase);

}
