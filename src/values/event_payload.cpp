// SPDX-License-Identifier: MIT
#include "values/event_payload.h"

#include "base/numbers.h"
#include "base/percent.h"
#include "base/unicode_text.h"
#include "base/utf8.h"
#include "values/provider.h"
#include "values/texts.h"

#include <algorithm>
#include <chrono>
#include <map>

namespace chimewell {

namespace {

using QueryItems = std::map<std::string, std::string, std::less<>>;

constexpr double maxTimestamp = 4102444800; // 2100-01-01T00:00:00Z

bool isAsciiLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool hasOurScheme(std::string_view scheme)
{
    return std::ranges::equal(scheme, eventUrlScheme, {}, [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
}

/// [ userinfo "@" ] host [ ":" port ], RFC 3986 section 3.2.
bool isAuthority(std::string_view authority)
{
    const auto at = authority.rfind('@');
    std::string_view hostAndPort = at == std::string_view::npos ? authority : authority.substr(at + 1);
    if (hostAndPort.starts_with('[')) {
        const auto closing = hostAndPort.find(']');
        if (closing == std::string_view::npos) return false;
        hostAndPort.remove_prefix(closing + 1);
        if (!hostAndPort.empty() && !hostAndPort.starts_with(':')) return false;
    }
    if (hostAndPort.find_first_of("[]") != std::string_view::npos) return false;
    const auto colon = hostAndPort.find(':');
    if (colon == std::string_view::npos) return true;
    return std::ranges::all_of(hostAndPort.substr(colon + 1), isDigit);
}

/// The query of a URL with our scheme; an empty one when it has none, nothing when it is no such URL.
std::optional<std::string_view> queryOf(std::string_view url)
{
    const auto colon = url.find(':');
    if (colon == std::string_view::npos || !isAsciiLetter(url.front())) return std::nullopt;
    if (!hasOurScheme(url.substr(0, colon))) return std::nullopt;
    url.remove_prefix(colon + 1);
    url = url.substr(0, url.find('#'));

    const auto question = url.find('?');
    const std::string_view hierarchy = url.substr(0, question);
    if (hierarchy.starts_with("//")) {
        const std::string_view authority = hierarchy.substr(2, hierarchy.find('/', 2) - 2);
        if (!isAuthority(authority)) return std::nullopt;
    }
    return question == std::string_view::npos ? std::string_view() : url.substr(question + 1);
}

/// A key that occurs again overwrites the earlier value; a key without "=" is left out. A value that
/// is not UTF-8 counts as empty.
QueryItems queryItems(std::string_view query)
{
    QueryItems items;
    while (!query.empty()) {
        const std::string_view item = query.substr(0, query.find('&'));
        query.remove_prefix(std::min(item.size() + 1, query.size()));
        const auto equals = item.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string value = percentDecoded(item.substr(equals + 1));
        const std::string_view kept =
            isValidUtf8(value) ? firstCharacters(firstBytes(value, maxValueBytes), maxValueCharacters) : "";
        items.insert_or_assign(percentDecoded(item.substr(0, equals)), kept);
    }
    return items;
}

std::optional<std::string> nonEmpty(const QueryItems& items, std::string_view key)
{
    const auto found = items.find(key);
    if (found == items.end() || found->second.empty()) return std::nullopt;
    return found->second;
}

std::optional<Date> timestamp(const QueryItems& items)
{
    const auto text = nonEmpty(items, "ts");
    const auto seconds = text ? decimal(*text) : std::nullopt;
    if (!seconds || !(*seconds > 0) || !(*seconds < maxTimestamp)) return std::nullopt;
    return Date(std::chrono::duration_cast<Date::duration>(std::chrono::duration<double>(*seconds)));
}

}

std::string EventPayload::sessionKey() const
{
    return session.value_or(noSessionKey);
}

std::optional<std::string> EventPayload::projectLabel() const
{
    if (!cwd) return std::nullopt;
    std::string_view path = *cwd;
    if (path.ends_with('/')) path.remove_suffix(1);
    if (path.empty()) return std::nullopt;

    const std::size_t end = path.find_last_not_of('/');
    if (end == std::string_view::npos) return std::string(path); // nothing but slashes
    const std::size_t slash = path.find_last_of('/', end);
    const std::size_t begin = slash == std::string_view::npos ? 0 : slash + 1;
    return std::string(path.substr(begin, end - begin + 1));
}

std::optional<EventPayload> parseEventUrl(std::string_view url)
{
    const auto query = queryOf(url);
    if (!query) return std::nullopt;
    const QueryItems items = queryItems(*query);

    const auto type = items.find("type");
    const auto event = type == items.end() ? std::nullopt : eventNamed(type->second);
    // Subagent events are dropped at the door on purpose, whatever the settings say.
    if (!event || event == CanonicalEvent::subagentFinished) return std::nullopt;

    const auto provider = items.find("provider");
    if (provider == items.end() || !isKnownProvider(provider->second)) return std::nullopt;

    const auto test = nonEmpty(items, "test");
    return EventPayload{.type = *event,
                        .provider = provider->second,
                        .cwd = nonEmpty(items, "cwd"),
                        .session = nonEmpty(items, "session"),
                        .title = nonEmpty(items, "title"),
                        .message = nonEmpty(items, "message"),
                        .term = nonEmpty(items, "term"),
                        .isTest = test == "1" || test == "true",
                        .timestamp = timestamp(items)};
}

std::string sampleEventUrl(std::string_view uuid)
{
    return std::string(eventUrlBeginning) + "finished&provider=claude&session=sample-" + std::string(uuid) +
           "&title=Test%20event&message=Chimewell%20is%20working&test=1&v=1";
}

Phrase eventTitle(CanonicalEvent event, const std::optional<std::string>& projectLabel)
{
    if (!projectLabel) return displayName(event);
    return {texts::titleAndDetail, {displayName(event), readableLine(*projectLabel)}};
}

Phrase alertTitle(const EventPayload& payload, bool isReminder)
{
    Phrase title = payload.title ? Phrase(readableLine(*payload.title))
                                 : eventTitle(payload.type, payload.projectLabel());
    if (!isReminder) return title;
    return {texts::stillWaiting, {std::move(title)}};
}

Phrase alertBody(CanonicalEvent event, const std::optional<std::string>& message)
{
    return message ? Phrase(*message) : Phrase(defaultBannerBody(event));
}

}
