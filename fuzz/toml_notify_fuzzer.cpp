// SPDX-License-Identifier: MIT
// Whatever the configuration: our line goes in and comes out again without touching another byte.
#include "hooks/toml_notify.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace chimewell;

constexpr std::string_view line = "notify = [\"/opt/chimewell-hook\", \"codex-notify\"]";

void require(bool holds)
{
    if (!holds) std::abort();
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view toml(reinterpret_cast<const char*>(data), size);
    const auto found = findNotify(toml);
    static_cast<void>(definesNotifyOtherwise(toml));
    const std::string with = withNotifyLine(toml, found, line);
    require(with.ends_with('\n'));

    const auto ours = findNotify(with);
    require(ours.has_value());
    require(with.substr(ours->begin, ours->size) == std::string(line) + "\n");
    require(ours->strings == std::vector<std::string>{"/opt/chimewell-hook", "codex-notify"});
    require(withNotifyLine(with, ours, line) == with);

    const std::string without = withoutNotify(with, *ours);
    std::string expected = found ? withoutNotify(toml, *found) : std::string(toml);
    const bool endedOpen = !expected.empty() && !expected.ends_with('\n') && without != expected;
    require(without == (endedOpen ? expected + "\n" : expected));
    return 0;
}
