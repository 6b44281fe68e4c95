// SPDX-License-Identifier: MIT
#include "presentation/settings_panes.h"

#include "values/texts.h"

#include <cstddef>

namespace chimewell {

namespace {

struct Looks {
    std::string_view rawName;
    Text title;
    std::string_view icon;
};

constexpr std::array<Looks, allPanes.size()> looks = {{
    {"events", texts::events, "bell.badge"},
    {"providers", texts::providers, "puzzlepiece.extension"},
    {"recent", texts::recent, "clock.arrow.circlepath"},
    {"general", texts::general, "gearshape"},
}};

const Looks& looksOf(Pane pane)
{
    return looks[static_cast<std::size_t>(pane)];
}

}

std::string_view rawName(Pane pane)
{
    return looksOf(pane).rawName;
}

Text title(Pane pane)
{
    return looksOf(pane).title;
}

std::string_view iconName(Pane pane)
{
    return looksOf(pane).icon;
}

}
