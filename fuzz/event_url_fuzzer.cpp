// SPDX-License-Identifier: MIT
// Whatever the URL: what is accepted keeps the promises of EventPayload.
#include "base/unicode_text.h"
#include "base/utf8.h"
#include "fuzzing.h"
#include "values/event_payload.h"
#include "values/provider.h"

#include <string>

namespace chimewell::fuzz {

namespace {

void parse(const std::string& url)
{
    const auto payload = parseEventUrl(url);
    if (!payload) return;
    require(payload->type != CanonicalEvent::subagentFinished);
    require(isKnownProvider(payload->provider));
    for (const auto* text :
         {&payload->cwd, &payload->session, &payload->title, &payload->message, &payload->term})
        require(!*text || (!(*text)->empty() && isValidUtf8(**text) &&
                           firstCharacters(**text, maxValueCharacters).size() == (*text)->size()));
    require(!payload->projectLabel() || !payload->projectLabel()->empty());
}

}

void check(std::string_view bytes)
{
    parse(std::string(bytes));
    // Most inputs would not be accepted without this beginning.
    parse("chimewell://event?type=finished&provider=claude&" + std::string(bytes));
}

}
