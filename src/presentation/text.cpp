// SPDX-License-Identifier: MIT
#include "presentation/text.h"

namespace chimewell {

std::string english(const Phrase& phrase, Wording wording)
{
    const bool isMany = phrase.count && *phrase.count != 1 && phrase.text.many();
    return filled(isMany ? phrase.text.many() : phrase.text.in(wording), phrase);
}

std::string filled(const std::string& format, const Phrase& phrase)
{
    std::string result;
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char next = i + 1 < format.size() ? format[i + 1] : '\0';
        const auto place = static_cast<std::size_t>(next - '1');
        if (format[i] == '%' && next == 'n' && phrase.count) {
            result += std::to_string(*phrase.count);
            ++i;
        } else if (format[i] == '%' && next >= '1' && place < phrase.arguments.size()) {
            result += phrase.arguments[place];
            ++i;
        } else {
            result += format[i];
        }
    }
    return result;
}

}
