// SPDX-License-Identifier: MIT
#include "json/json_parser.h"

#include "base/utf8.h"
#include "json/json_fault.h"
#include "json/json_node.h"
#include "json/json_reader.h"
#include "json/json_tape.h"

#include <utility>

namespace chimewell {

std::expected<JSONValue, ParseError> parseJSON(std::string_view bytes, LoneSurrogates loneSurrogates)
{
    if (!isValidUtf8(bytes)) return std::unexpected(ParseError{"not valid UTF-8"});

    JSONTape tape(bytes.size() + JSONNode::headerSize);
    JSONReader reader(tape);
    reader.feed(bytes, true);
    if (reader.fault() != JSONFault::none) {
        ParseError error{std::string(message(reader.fault()))};
        if (reader.fault() == JSONFault::invalidEscape) error.message += reader.offendingCharacter();
        if (reader.fault() == JSONFault::numberWithoutDigit) error.message += tape.unfinishedText();
        return std::unexpected(std::move(error));
    }
    if (reader.sawLoneSurrogate() && loneSurrogates == LoneSurrogates::refuse)
        return std::unexpected(ParseError{"lone surrogate"});
    return std::move(tape).finish();
}

}
