// SPDX-License-Identifier: MIT
#include "base/text.h"

#include "base/unicode_text.h"

#include <cstddef>

namespace chimewell {

std::string composed(const Phrase& phrase, const TextFormat& format)
{
    if (!phrase.text) return readableText(phrase.verbatim);
    const std::string words = format(*phrase.text, phrase.count);
    std::string result;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const char next = i + 1 < words.size() ? words[i + 1] : '\0';
        const auto place = static_cast<std::size_t>(next - '1');
        if (words[i] == '%' && next == 'n' && phrase.count) {
            result += std::to_string(*phrase.count);
            ++i;
        } else if (words[i] == '%' && next >= '1' && place < phrase.arguments.size()) {
            result += composed(phrase.arguments[place], format);
            ++i;
        } else {
            result += words[i];
        }
    }
    return result;
}

std::string english(const Phrase& phrase, Wording wording)
{
    return composed(phrase, [wording](const Text& text, std::optional<std::int64_t> count) {
        return std::string(count && *count != 1 && text.many() ? text.many() : text.in(wording));
    });
}

}
