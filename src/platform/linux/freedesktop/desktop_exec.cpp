// SPDX-License-Identifier: MIT
#include "platform/linux/freedesktop/desktop_exec.h"

#include "platform/linux/freedesktop/desktop_entry.h"

#include <algorithm>
#include <string_view>

namespace chimewell {

namespace {

struct Word {
    std::string text;
    bool isIcon = false;   ///< A lone %i, which stands for two words.
    bool vanishes = false; ///< Nothing but codes for files, of which there are none.
};

/// Splits as a shell would, but with double quotes and backslashes only, and replaces the field codes.
class ExecReader {
public:
    ExecReader(std::string_view line, const DesktopEntry& entry, const std::filesystem::path& file)
        : line_(line),
          entry_(entry),
          file_(file)
    {
    }

    std::optional<std::vector<std::string>> read()
    {
        while (skipBlanks())
            if (!readWord()) return std::nullopt;
        if (words_.empty()) return std::nullopt;
        return words_;
    }

private:
    bool skipBlanks()
    {
        at_ = std::min(line_.find_first_not_of(" \t\n", at_), line_.size());
        return at_ < line_.size();
    }

    bool readWord()
    {
        Word word;
        bool quoted = false;
        for (; at_ < line_.size(); ++at_) {
            const char character = line_[at_];
            if (!quoted && (character == ' ' || character == '\t' || character == '\n')) break;
            if (character == '"') {
                quoted = !quoted;
            } else if (character == '\\') {
                if (++at_ == line_.size()) return false;
                word.text += line_[at_];
            } else if (character == '%') {
                if (++at_ == line_.size()) return false;
                if (!replaceCode(line_[at_], word)) return false;
            } else {
                word.text += character;
            }
        }
        if (quoted) return false;
        finish(word);
        return true;
    }

    bool replaceCode(char code, Word& word) const
    {
        switch (code) {
        case '%':
            word.text += '%';
            return true;
        case 'c':
            word.text += entry_.text("Name");
            return true;
        case 'k':
            word.text += file_.native();
            return true;
        case 'i':
            word.isIcon = true;
            return true;
        default:
            word.vanishes = true;
            return std::string_view("fFuUdDnNvm").contains(code);
        }
    }

    void finish(const Word& word)
    {
        const std::string icon = word.isIcon ? entry_.text("Icon") : std::string();
        if (!icon.empty()) words_.insert(words_.end(), {"--icon", icon});
        if (word.text.empty() && (word.vanishes || word.isIcon)) return;
        words_.push_back(word.text);
    }

    std::string_view line_;
    const DesktopEntry& entry_;
    const std::filesystem::path& file_;
    std::size_t at_ = 0;
    std::vector<std::string> words_;
};

}

std::optional<std::vector<std::string>> commandLine(const DesktopEntry& entry,
                                                    const std::filesystem::path& file)
{
    return ExecReader(entry.text("Exec"), entry, file).read();
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
    for (const char character : text) {
        switch (character) {
        case '\\':
            value += "\\\\";
            break;
        case '\n':
            value += "\\n";
            break;
        case '\t':
            value += "\\t";
            break;
        case '\r':
            value += "\\r";
            break;
        default:
            value += character;
        }
    }
    // A reader trims both ends.
    if (value.ends_with(' ')) value.replace(value.size() - 1, 1, "\\s");
    if (value.starts_with(' ')) value.replace(0, 1, "\\s");
    return value;
}

}
