// SPDX-License-Identifier: MIT
// Whatever a desktop file holds can be asked for, and what we write into one comes back as it was.
#include "fuzzing.h"
#include "platform/linux/freedesktop/desktop_entry.h"

#include <string>
#include <vector>

namespace chimewell::fuzz {

void check(std::string_view bytes)
{
    const std::filesystem::path file = "/usr/share/applications/a.desktop";
    if (const auto entry = DesktopEntry::parse(bytes)) {
        for (const char* const key : {"Name", "Exec", "OnlyShowIn"}) {
            static_cast<void>(entry->text(key));
            static_cast<void>(entry->list(key));
            static_cast<void>(entry->flag(key));
        }
        const auto command = entry->commandLine(file);
        require(!command || !command->empty());
    }

    std::vector<std::string> command(1, "program");
    for (const char c : bytes) {
        if (c == ' ')
            command.emplace_back();
        else
            command.back() += c == '_' ? ' ' : c;
    }
    const std::string text =
        "[Desktop Entry]\nName=" + stringValue(bytes) + "\nExec=" + execValue(command) + '\n';
    const auto written = DesktopEntry::parse(text);
    require(written && written->text("Name") == bytes);
    require(written->commandLine(file) == command);
}

}
