// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
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
    constexpr bool operator==(const Text& other) const
    {
        return std::string_view(macOS_) == other.macOS_ && std::string_view(linux_) == other.linux_;
    }

private:
    const char* macOS_;
    const char* linux_;
    const char* many_ = nullptr;
};

/// What is shown or spoken, in no language yet: a text of ours with what has to be put into it, or something
/// that is never translated because the user, an agent or the system wrote it, and is made readable instead.
struct Phrase {
    Phrase() = default; ///< Says nothing.
    // Most phrases are just a text or just a name; a literal would be one that was forgotten to be
    // translated. NOLINTBEGIN(google-explicit-constructor)
    Phrase(Text words) : text(words) {}
    Phrase(std::string verbatimText) : verbatim(std::move(verbatimText)) {}
    Phrase(std::string_view verbatimText) : verbatim(verbatimText) {}
    // NOLINTEND(google-explicit-constructor)
    Phrase(Text words, std::vector<Phrase> values) : text(words), arguments(std::move(values)) {}
    Phrase(Text words, std::int64_t number) : text(words), count(number) {}

    std::optional<Text> text; ///< Absent: `verbatim` is the whole phrase.
    std::string verbatim;
    std::vector<Phrase> arguments;     ///< For `%1`, `%2`, …
    std::optional<std::int64_t> count; ///< For `%n`.
    bool operator==(const Phrase&) const = default;
};

/// The format of one text in a language; the count, where there is one, chooses its form.
using TextFormat = std::function<std::string(const Text& text, std::optional<std::int64_t> count)>;

/// The phrase with its texts said by `format` and what others wrote made readable (base/unicode_text.h).
/// What fills a place is not looked at again.
std::string composed(const Phrase& phrase, const TextFormat& format);

/// The phrase in English.
std::string english(const Phrase& phrase, Wording wording = Wording::macOS);

}
