// SPDX-License-Identifier: MIT
#include "helper/agent_input.h"
#include "helper/hook_event.h"
#include "helper/system.h"
#include "values/event_payload.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace chimewell;

namespace {

void require(bool holds)
{
    if (!holds) std::abort();
}

/// What is no unreserved character, `&` or `=` is percent-encoded.
bool isWellFormed(std::string_view query)
{
    constexpr std::string_view plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~&=";
    constexpr std::string_view hex = "0123456789ABCDEF";
    while (!query.empty()) {
        if (query.front() != '%') {
            if (plain.find(query.front()) == std::string_view::npos) return false;
            query.remove_prefix(1);
            continue;
        }
        if (query.size() < 3 || hex.find(query[1]) == std::string_view::npos ||
            hex.find(query[2]) == std::string_view::npos)
            return false;
        query.remove_prefix(3);
    }
    return true;
}

}

/// The first byte chooses the command, the second the size of the windows, the rest is the payload and also a
/// value of the environment. Whatever it is, the URL is one that the application reads.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    // The one way to look at the bytes as text.
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::array<Invocation, 4> commands = {{
        {.provider = "claude", .event = CanonicalEvent::finished},
        {.provider = "claude", .event = CanonicalEvent::waitingInput},
        {.provider = "cursor", .event = CanonicalEvent::finished},
        {.provider = "codex", .event = CanonicalEvent::finished},
    }};
    const Invocation& command = commands[data[0] % commands.size()];
    const std::size_t step = data[1] + std::size_t{1};
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
    if (!url) return 0;
    // Four values, of which each wrong byte becomes nine characters.
    require(url->size() < std::size_t{4 * 9} * maxValueBytes + 200);
    require(isWellFormed(std::string_view(*url).substr(url->find('?') + 1)));
    const auto read = parseEventUrl(*url);
    require(read && read->type == command.event && read->provider == command.provider && read->timestamp);
    return 0;
}
