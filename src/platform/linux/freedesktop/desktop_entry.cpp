// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/desktop_entry.h"

#include "platform/posix/xdg_user_folders.h"
#include "ports/files.h"

#include <QStandardPaths>
#include <QString>

#include <algorithm>
#include <utility>

namespace chimewell {
namespace {

// What a letter means after a backslash, in the same order.
constexpr std::string_view escapeLetters = "\\ntrs";
constexpr std::string_view escapeMeanings = "\\\n\t\r ";

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The parts of `value` between separators that are not escaped, without their escapes. A backslash before
/// any other letter means itself.
std::vector<std::string> unescaped(std::string_view value, char separator)
{
    std::vector<std::string> items(1);
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == separator) {
            items.emplace_back();
        } else if (value[i] != '\\' || i + 1 == value.size()) {
            items.back() += value[i];
        } else if (const auto known = escapeLetters.find(value[++i]); known != std::string_view::npos) {
            items.back() += escapeMeanings[known];
        } else {
            if (value[i] != separator) items.back() += '\\';
            items.back() += value[i];
        }
    }
    return items;
}

/// An id's dashes may stand for folders: "kde-okular" is also kde/okular.desktop. Leftmost dashes first.
std::vector<std::filesystem::path> possibleNames(std::string_view id)
{
    std::string name = std::string(id) + ".desktop";
    std::vector<std::filesystem::path> names = {name};
    for (char& character : name)
        if (character == '-') {
            character = '/';
            names.emplace_back(name);
        }
    return names;
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
    constexpr char none = '\n'; // a value is one line
    const auto found = values_.find(key);
    return found == values_.end() ? std::string() : unescaped(found->second, none).front();
}

bool DesktopEntry::flag(std::string_view key, bool otherwise) const
{
    const auto found = values_.find(key);
    if (found == values_.end()) return otherwise;
    return found->second == "true" || found->second == "1"; // "1" is the old spelling
}

std::vector<std::string> DesktopEntry::list(std::string_view key) const
{
    const auto found = values_.find(key);
    if (found == values_.end()) return {};
    std::vector<std::string> items = unescaped(found->second, ';');
    if (items.back().empty()) items.pop_back();
    return items;
}

bool DesktopEntry::canBeTried() const
{
    const std::string program = text("TryExec");
    return program.empty() || !QStandardPaths::findExecutable(QString::fromStdString(program)).isEmpty();
}

std::optional<std::vector<std::string>> DesktopEntry::commandLine(const std::filesystem::path& file) const
{
    constexpr std::string_view blanks = " \t\n";
    const std::string line = text("Exec");
    std::vector<std::string> words;
    // Splits as a shell would, but with double quotes and backslashes only, and replaces the field codes.
    for (std::size_t at = line.find_first_not_of(blanks); at < line.size();
         at = line.find_first_not_of(blanks, at)) {
        std::string word;
        std::string icon;
        bool isQuoted = false;
        bool hasCode = false; // for files, of which there are none, or for an icon
        for (; at < line.size() && (isQuoted || !blanks.contains(line[at])); ++at) {
            const char character = line[at];
            if (character == '"') {
                isQuoted = !isQuoted;
                continue;
            }
            if (character != '\\' && character != '%') {
                word += character;
                continue;
            }
            if (++at == line.size()) return std::nullopt;
            const char code = line[at];
            if (character == '\\' || code == '%') {
                word += code;
            } else if (code == 'c') {
                word += text("Name");
            } else if (code == 'k') {
                word += file.native();
            } else {
                if (!std::string_view("fFuUdDnNvmi").contains(code)) return std::nullopt;
                if (code == 'i') icon = text("Icon");
                hasCode = true;
            }
        }
        if (isQuoted) return std::nullopt;
        if (!icon.empty()) words.insert(words.end(), {"--icon", icon});
        if (!word.empty() || !hasCode) words.push_back(word);
    }
    if (words.empty()) return std::nullopt;
    return words;
}

std::optional<InstalledEntry> findDesktopEntry(std::string_view id, const XdgUserFolders& folders,
                                               Files& files)
{
    if (id.empty()) return std::nullopt;
    for (const auto& folder : folders.dataFolders())
        for (const auto& name : possibleNames(id)) {
            std::filesystem::path file = folder / "applications" / name;
            const auto content = files.read(file);
            if (!content) continue;
            auto entry = DesktopEntry::parse(*content);
            // The first file of that name counts, even if it only says that the application is deleted.
            if (!entry || entry->flag("Hidden") || !entry->canBeTried()) return std::nullopt;
            return InstalledEntry{.id = std::string(id), .file = std::move(file), .entry = *std::move(entry)};
        }
    return std::nullopt;
}

std::string execValue(const std::vector<std::string>& command)
{
    constexpr std::string_view reserved = " \t\n\"'\\><~|&;$*?#()`";
    std::string line;
    for (const std::string& word : command) {
        if (!line.empty()) line += ' ';
        const bool quoted = word.empty() || word.find_first_of(reserved) != std::string::npos;
        if (quoted) line += '"';
        for (const char character : word) {
            if (std::string_view("\"`$\\").contains(character)) line += '\\';
            if (character == '%') line += '%';
            line += character;
        }
        if (quoted) line += '"';
    }
    return stringValue(line);
}

std::string stringValue(std::string_view text)
{
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t known = escapeMeanings.find(text[i]);
        // A reader trims both ends; other spaces mean themselves.
        const bool isInnerSpace = text[i] == ' ' && i != 0 && i + 1 != text.size();
        if (known == std::string_view::npos || isInnerSpace)
            value += text[i];
        else
            value.append(1, '\\').append(1, escapeLetters[known]);
    }
    return value;
}

}
