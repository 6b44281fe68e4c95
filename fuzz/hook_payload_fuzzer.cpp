// SPDX-License-Identifier: MIT
// The first byte chooses the command, the second the size of the windows, the rest is the payload and also a
// value of the environment. Whatever it is, the URL is one that the application reads.
#include "base/percent.h"
#include "fuzzing.h"
#include "helper/hook_event.h"
#include "values/event_payload.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <string>

namespace chimewell::fuzz {

void check(std::string_view bytes)
{
    if (bytes.size() < 2) return;
    const std::array<Invocation, 4> commands = {{
        {.agent = Agent::claude, .event = CanonicalEvent::finished},
        {.agent = Agent::claude, .event = CanonicalEvent::waitingInput},
        {.agent = Agent::cursor, .event = CanonicalEvent::finished},
        {.agent = Agent::codex, .event = CanonicalEvent::finished},
    }};
    const Invocation& command = commands[static_cast<unsigned char>(bytes[0]) % commands.size()];
    const std::size_t step = static_cast<unsigned char>(bytes[1]) + std::size_t{1};
    const std::string_view payload = bytes.substr(2);

    PayloadReader reader(command);
    std::size_t begin = 0;
    for (std::size_t end = 0; reader.wantsMore() && begin <= payload.size();) {
        const bool last = end + step >= payload.size();
        end = last ? payload.size() : end + step;
        begin += reader.feed(payload.substr(begin, end - begin), last);
        if (last) break;
    }
    const std::string variable = "TERM_PROGRAM=" + std::string(payload);
    const std::array<const char*, 2> environment = {variable.c_str(), nullptr};
    const auto url = eventUrlFor(command, reader.payload(), Environment(environment.data()),
                                 std::chrono::system_clock::now());
    if (!url) return;
    // Four values, of which each wrong byte becomes nine characters.
    require(url->size() < std::size_t{4 * 9} * maxValueBytes + 200);
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~&=%";
    const std::string_view query = std::string_view(*url).substr(url->find('?') + 1);
    require(query.find_first_not_of(plain) == std::string_view::npos && strictlyPercentDecoded(query));
    const auto read = parseEventUrl(*url);
    require(read && read->type == command.event && read->provider == command.provider() && read->timestamp);
}

}
