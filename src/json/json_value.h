// SPDX-License-Identifier: MIT
#pragma once

#include "json/json_node.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace chimewell {

struct JSONMember;

/// One JSON value that never changes. Objects keep the order of their members and keys that are repeated;
/// numbers keep their spelling. A copy costs a pointer, as does taking a value out of another one; comparing
/// and destroying need no recursion, however deep the nesting. The asking functions answer "nothing" for a
/// value of another kind.
class JSONValue {
public:
    enum class Kind : std::uint8_t { object, array, string, number, boolean, null };

    JSONValue(); ///< null

    /// Containers are made by copying the flat form of what goes in.
    static JSONValue object(std::span<const JSONMember> members);
    static JSONValue array(std::span<const JSONValue> elements);
    static JSONValue string(std::string_view utf8);
    /// `spelling` is written as it is, so it has to be a number.
    static JSONValue number(std::string_view spelling);
    static JSONValue boolean(bool value);

    Kind kind() const;
    bool is(Kind kind) const { return this->kind() == kind; }

    /// What a string holds, or a number's spelling. Lives as long as this value or any that shares its
    /// storage.
    std::string_view text() const;
    bool isTrue() const;

    /// In their order. To change an object or array, change these and build a new one.
    std::vector<JSONMember> members() const;
    std::vector<JSONValue> elements() const;

    /// The value of the last member with this key.
    std::optional<JSONValue> find(std::string_view key) const;

    /// The same kind with the same content: members in the same order, numbers spelled alike.
    bool operator==(const JSONValue& other) const { return node().bytes() == other.node().bytes(); }

    /// The value as it lies in memory, as long as this value lives.
    JSONNode node() const { return JSONNode(start_.get()); }

private:
    friend class JSONTape;
    explicit JSONValue(std::shared_ptr<const char> start) : start_(std::move(start)) {}

    JSONValue inside(const JSONNode& node) const;

    std::shared_ptr<const char> start_; ///< Of the node; it shares in owning the whole tape.
};

struct JSONMember {
    std::string key;
    JSONValue value;

    bool operator==(const JSONMember&) const = default;
};

}
