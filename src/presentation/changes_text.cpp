// SPDX-License-Identifier: MIT
#include "presentation/changes_text.h"

#include "base/readable_text.h"

#include <algorithm>

namespace chimewell {

std::string changesText(const std::vector<HookChange>& changes)
{
    const auto hasKind = [&](HookChange::Kind kind) {
        return std::ranges::find(changes, kind, &HookChange::kind) != changes.end();
    };
    const bool isMixed = hasKind(HookChange::Kind::added) && hasKind(HookChange::Kind::removed);
    std::string text;
    for (const HookChange& change : changes) {
        if (!text.empty()) text += '\n';
        const std::string mark = !isMixed ? "" : change.kind == HookChange::Kind::added ? "+ " : "- ";
        text += mark;
        for (const char character : readableText(change.entry)) {
            text += character;
            if (character == '\n') text += mark;
        }
    }
    return text;
}

}
