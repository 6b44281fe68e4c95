// SPDX-License-Identifier: MIT
// Any bytes: what parses is written and parsed back as the same value, what does not has a message, and the
// reader tells the same however the bytes are cut.

#include "base/utf8.h"
#include "fuzzing.h"
#include "json/json_text.h"
#include "json/transcript.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace chimewell::fuzz {

void check(std::string_view bytes)
{
    const test::Reading whole = test::readWhole(bytes);
    require(whole.kept);
    const std::size_t cut = bytes.size() / 2;
    for (const std::size_t pieceSize : {std::size_t{1}, std::size_t{7}})
        require(test::readInPieces(bytes, cut, pieceSize) == whole);

    const auto value = parseJSON(bytes);
    require(value.has_value() == (isValidUtf8(bytes) && whole.fault.empty()));
    require(parseJSON(bytes, LoneSurrogates::refuse).has_value() ==
            (value.has_value() && !whole.loneSurrogate));
    if (!value) {
        require(value.error().message.starts_with(isValidUtf8(bytes) ? whole.fault : "not valid UTF-8"));
        return;
    }
    // Deep nesting is legal, and its indentation endless.
    const std::uint64_t size = writtenSize(*value);
    if (size > 10'000'000) return;
    const std::string written = writeJSON(*value);
    require(written.size() == size);
    require(isValidUtf8(written));
    const auto again = parseJSON(written);
    require(again.has_value() && *again == *value);
    require(writeJSON(*again) == written);

    // The same value, built from its parts.
    if (value->is(JSONValue::Kind::object)) require(JSONValue::object(value->members()) == *value);
    if (value->is(JSONValue::Kind::array)) require(JSONValue::array(value->elements()) == *value);
}

}
