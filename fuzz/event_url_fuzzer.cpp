// SPDX-License-Identifier: MIT
// Whatever the URL: no crash, and what is accepted keeps the promises of EventPayload.
#include "base/unicode_text.h"
#include "base/utf8.h"
#include "values/event_payload.h"
#include "values/provider.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

using namespace chimewell;

void require(bool holds)
{
    if (!holds) std::abort();
}

void check(const std::optional<std::string>& text)
{
    if (!text) return;
    require(!text->empty());
    require(isValidUtf8(*text));
    require(firstCharacters(*text, maxValueCharacters).size() == text->size());
}

void parse(const std::string& url)
{
    const auto payload = parseEventUrl(url);
    if (!payload) return;
    require(payload->type != CanonicalEvent::subagentFinished);
    require(isKnownProvider(payload->provider));
    for (const auto* text :
         {&payload->cwd, &payload->session, &payload->title, &payload->message, &payload->term})
        check(*text);
    require(!payload->projectLabel() || !payload->projectLabel()->empty());
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    parse(text);
    // Most inputs would not get past the door.
    parse("chimewell://event?type=finished&provider=claude&" + text);
    return 0;
}
