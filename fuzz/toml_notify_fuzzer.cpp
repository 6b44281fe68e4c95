// SPDX-License-Identifier: MIT
// Whatever the configuration: our line goes in and comes out again without touching another byte.
#include "fuzzing.h"
#include "hooks/toml_notify.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace chimewell::fuzz {

namespace {

constexpr std::string_view line = "notify = [\"/opt/chimewell-hook\", \"codex-notify\"]";

}

void check(std::string_view toml)
{
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
}

}
