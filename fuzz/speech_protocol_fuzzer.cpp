// SPDX-License-Identifier: MIT
// Whatever a speech service says is a line of the protocol or none, and whatever is spoken cannot end the
// text before its end.
#include "fuzzing.h"
#include "platform/linux/speech/ssip_protocol.h"

#include <string>

namespace chimewell::fuzz {

void check(std::string_view bytes)
{
    if (const auto line = parseSsipLine(bytes)) {
        require(line->code >= 100 && line->code <= 999 && line->text.size() + 4 == bytes.size());
        if (const auto voice = parseVoiceRow(line->text))
            require(!voice->identifier.empty() && !voice->language.empty() &&
                    voice->language.find('_') == std::string::npos);
    }
    static_cast<void>(parseVoiceRow(bytes));

    std::string_view block;
    const std::string sent = ssipTextBlock(bytes);
    std::string received;
    for (block = sent; !block.starts_with(".\r\n");) {
        const auto end = block.find("\r\n");
        require(end != std::string_view::npos);
        const std::string_view line = block.substr(0, end);
        received += line.substr(line.starts_with('.') ? 1 : 0);
        received += '\n';
        block.remove_prefix(end + 2);
    }
    require(block.size() == 3);
    if (bytes.find('\r') == std::string_view::npos)
        require(received == bytes || received == std::string(bytes) + '\n');
}

}
