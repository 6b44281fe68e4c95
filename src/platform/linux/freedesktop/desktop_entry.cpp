// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/desktop_entry.h"

#include <QStandardPaths>
#include <QString>

#include <algorithm>

namespace chimewell {

namespace {

constexpr std::string_view blanks = " \t\r";

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

char unescaped(char letter)
{
    switch (letter) {
    case 's':
        return ' ';
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case 'r':
        return '\r';
    default:
        return letter;
    }
}

}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view text)
{
    DesktopEntry entry;
    bool found = false;
    bool inside = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with('[')) {
            inside = line == "[Desktop Entry]";
            found = found || inside;
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!inside || line.starts_with('#') || equals == std::string_view::npos) continue;
        entry.values_.try_emplace(std::string(trimmed(line.substr(0, equals))),
                                  trimmed(line.substr(equals + 1)));
    }
    if (!found) return std::nullopt;
    return entry;
}

std::string DesktopEntry::text(std::string_view key) const
{
    const auto found = values_.find(key);
    if (found == values_.end()) return {};
    std::string result;
    bool escaped = false;
    for (const char character : found->second) {
        if (!escaped && character == '\\') {
            escaped = true;
            continue;
        }
        if (escaped && unescaped(character) == character && character != '\\') result += '\\'; // means itself
        result += escaped ? unescaped(character) : character;
        escaped = false;
    }
    if (escaped) result += '\\';
    return result;
}

bool DesktopEntry::flag(std::string_view key, bool otherwise) const
{
    const auto found = values_.find(key);
    if (found == values_.end()) return otherwise;
    return found->second == "true" || found->second == "1"; // "1" is the old spelling
}

std::vector<std::string> DesktopEntry::list(std::string_view key) const
{
    std::vector<std::string> items(1);
    const auto found = values_.find(key);
    if (found == values_.end()) return {};
    bool escaped = false;
    for (const char character : found->second) {
        if (character == ';' && !escaped)
            items.emplace_back();
        else if (character != '\\' || escaped)
            items.back() += escaped ? unescaped(character) : character;
        escaped = character == '\\' && !escaped;
    }
    if (items.back().empty()) items.pop_back();
    return items;
}

bool DesktopEntry::canBeTried() const
{
    const std::string program = text("TryExec");
    return program.empty() || !QStandardPaths::findExecutable(QString::fromStdString(program)).isEmpty();
}

}
