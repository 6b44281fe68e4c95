// SPDX-License-Identifier: MIT
#include "hooks/toml_notify.h"

#include "base/percent.h"
#include "base/utf8.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace chimewell {

namespace {

constexpr std::string_view blanks = " \t";

std::string_view withoutBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

/// Takes `word` off the front of `text`.
bool take(std::string_view& text, std::string_view word)
{
    if (!text.starts_with(word)) return false;
    text.remove_prefix(word.size());
    return true;
}

/// Where the string that begins at `at` ends: after its closing quotes, or at the end of the line or text if
/// it is not closed.
std::size_t stringEnd(std::string_view toml, std::size_t at)
{
    const char quote = toml[at];
    const std::string triple(3, quote);
    const bool spansLines = toml.substr(at).starts_with(triple);
    const bool hasEscapes = quote == '"';
    for (std::size_t i = at + (spansLines ? 3 : 1); i < toml.size(); ++i) {
        if (hasEscapes && toml[i] == '\\')
            ++i;
        else if (!spansLines && toml[i] == '\n')
            return i;
        else if (!spansLines && toml[i] == quote)
            return i + 1;
        else if (spansLines && toml.substr(i).starts_with(triple)) {
            // The string itself may end with one or two quotes.
            i += 3;
            while (i < toml.size() && toml[i] == quote)
                ++i;
            return i;
        }
    }
    return toml.size();
}

/// Takes an escape, without its backslash, off the front of `text`: the character that it stands for, or
/// nothing for a line break that it hides.
std::string takeEscapedCharacter(std::string_view& text)
{
    constexpr std::string_view letters = "btnfre";
    constexpr std::string_view characters = "\b\t\n\f\r\x1B";
    const char letter = text.front();
    if (const auto at = letters.find(letter); at != std::string_view::npos) {
        text.remove_prefix(1);
        return {characters[at]};
    }
    if (const std::size_t digits = letter == 'x' ? 2 : letter == 'u' ? 4 : letter == 'U' ? 8 : 0) {
        const std::string_view number = text.substr(1, digits);
        std::uint32_t character = 0;
        const auto read = std::from_chars(number.data(), number.data() + number.size(), character, 16);
        text.remove_prefix(1 + number.size());
        const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
        const bool isCharacter = read.ec == std::errc() && character <= 0x10FFFF && !isSurrogate;
        return std::string(Utf8Character(isCharacter ? character : 0xFFFD).bytes());
    }
    if (constexpr std::string_view gap = " \t\r\n"; gap.contains(letter)) {
        text.remove_prefix(std::min(text.find_first_not_of(gap), text.size()));
        return {};
    }
    text.remove_prefix(1);
    return {letter};
}

/// The value of a string in quotes.
std::string unquoted(std::string_view text)
{
    const char quote = text.front();
    const std::string triple(3, quote);
    const std::string quotes = text.starts_with(triple) ? triple : std::string(1, quote);
    text.remove_prefix(quotes.size());
    if (text.ends_with(quotes)) text.remove_suffix(quotes.size());
    if (quotes == triple && !take(text, "\n")) take(text, "\r\n");
    if (quote == '\'') return std::string(text);
    std::string value;
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c == '\\' && !text.empty())
            value += takeEscapedCharacter(text);
        else
            value += c;
    }
    return value;
}

/// Takes the key `notify`, bare or quoted, and the blanks after it.
bool takeNotifyKey(std::string_view& text)
{
    constexpr std::string_view name = "notify";
    std::string_view rest = text;
    if (rest.starts_with('"') || rest.starts_with('\'')) {
        const std::size_t end = stringEnd(rest, 0);
        if (unquoted(rest.substr(0, end)) != name) return false;
        rest.remove_prefix(end);
    } else if (!take(rest, name)) {
        return false;
    }
    text = withoutBlanks(rest);
    return true;
}

/// The strings in a value.
std::vector<std::string> stringsIn(std::string_view value)
{
    std::vector<std::string> strings;
    for (std::size_t at = 0; at < value.size();) {
        if (value[at] == '"' || value[at] == '\'') {
            const std::size_t end = stringEnd(value, at);
            strings.push_back(unquoted(value.substr(at, end - at)));
            at = end;
        } else if (value[at] == '#') {
            at = std::min(value.find('\n', at), value.size());
        } else {
            ++at;
        }
    }
    return strings;
}

/// Where the statement that begins at `at` ends: after the first line feed outside strings, arrays and inline
/// tables.
std::size_t statementEnd(std::string_view toml, std::size_t at)
{
    std::size_t open = 0;
    while (at < toml.size()) {
        const char c = toml[at];
        if (c == '"' || c == '\'') {
            at = stringEnd(toml, at);
            continue;
        }
        if (c == '#') {
            at = std::min(toml.find('\n', at), toml.size());
            continue;
        }
        ++at;
        if (c == '[' || c == '{')
            ++open;
        else if ((c == ']' || c == '}') && open > 0)
            --open;
        else if (c == '\n' && open == 0)
            break;
    }
    return at;
}

/// Calls `visit(statement, begin, size)` for each statement, its leading blanks left out, until it returns
/// true.
template<class Visit>
void forEachStatement(std::string_view toml, Visit visit)
{
    std::size_t begin = byteOrderMarkSize(toml);
    while (begin < toml.size()) {
        const std::size_t end = statementEnd(toml, begin);
        if (visit(withoutBlanks(toml.substr(begin, end - begin)), begin, end - begin)) return;
        begin = end;
    }
}

}

std::optional<NotifySetting> findNotify(std::string_view toml)
{
    std::optional<NotifySetting> found;
    forEachStatement(toml, [&](std::string_view statement, std::size_t begin, std::size_t size) {
        if (statement.starts_with('[')) return true;
        if (takeNotifyKey(statement) && statement.starts_with('='))
            found = NotifySetting{begin, size, stringsIn(statement)};
        return found.has_value();
    });
    return found;
}

bool definesNotifyOtherwise(std::string_view toml)
{
    bool found = false;
    bool inTable = false;
    forEachStatement(toml, [&](std::string_view statement, std::size_t, std::size_t) {
        if (take(statement, "[")) {
            inTable = true;
            take(statement, "[");
            statement = withoutBlanks(statement);
            found = takeNotifyKey(statement) && (statement.starts_with(']') || statement.starts_with('.'));
        } else if (!inTable) {
            found = takeNotifyKey(statement) && statement.starts_with('.');
        }
        return found;
    });
    return found;
}

std::string withNotifyLine(std::string_view toml, const std::optional<NotifySetting>& replaced,
                           std::string_view line)
{
    const std::size_t top = byteOrderMarkSize(toml);
    std::string text(toml);
    text.replace(replaced ? replaced->begin : top, replaced ? replaced->size : 0, std::string(line) + '\n');
    if (!text.ends_with('\n')) text += '\n';
    return text;
}

std::string withoutNotify(std::string_view toml, const NotifySetting& removed)
{
    return std::string(toml).erase(removed.begin, removed.size);
}

std::string tomlString(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte < 0x20 && c != '\t') || byte == 0x7F) {
            quoted += "\\u00";
            appendHexPair(quoted, c);
            continue;
        }
        if (c == '\\' || c == '"') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

}
