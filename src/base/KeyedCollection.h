#pragma once

#include "base/Error.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillshift {

/// Values under text keys, in the order in which they stand; ordinals count from 1. Keys that differ only in
/// the case of Latin letters are the same key.
/// Fails with Error 5 for a missing key, 9 for an ordinal out of range, 457 for a key that is taken.
template <typename Value>
class KeyedCollection {
public:
    struct Entry {
        std::string key;
        Value value;
    };

    int count() const { return static_cast<int>(entries_.size()); }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

    /// Place of a key; 0 if it is not there.
    int OrdinalOf(std::string_view key) const {
        const auto found = std::ranges::find_if(entries_, [&](const Entry& e) { return Same(e.key, key); });
        return found == entries_.end() ? 0 : static_cast<int>(found - entries_.begin()) + 1;
    }
    bool Contains(std::string_view key) const { return OrdinalOf(key) != 0; }
    /// The value of a key; null if it is not there.
    const Value* Find(std::string_view key) const {
        const int ordinal = OrdinalOf(key);
        return ordinal == 0 ? nullptr : &entries_[Index(ordinal)].value;
    }
    const Value& Item(std::string_view key) const { return entries_[Index(Present(key))].value; }
    const Value& Item(int ordinal) const { return entries_[Index(Within(ordinal, count()))].value; }

    void Add(std::string key, Value value) { Insert(count() + 1, std::move(key), std::move(value)); }
    /// Puts a value in so that it stands at `ordinal`: at a neighbour's ordinal to stand before it, at one
    /// more to stand behind it.
    void Insert(int ordinal, std::string key, Value value) {
        if (Contains(key))
            throw Failure(457, u"This key is already associated with an element of this collection");
        const auto index = static_cast<std::ptrdiff_t>(Index(Within(ordinal, count() + 1)));
        entries_.insert(entries_.begin() + index, {std::move(key), std::move(value)});
    }
    void Remove(std::string_view key) {
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(Index(Present(key))));
    }
    void Clear() { entries_.clear(); }

private:
    static std::size_t Index(int ordinal) { return static_cast<std::size_t>(ordinal) - 1; }
    static bool Same(std::string_view a, std::string_view b) {
        constexpr auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; };
        return std::ranges::equal(a, b, {}, upper, upper);
    }
    static Error Failure(int number, std::u16string description) {
        return {number, u"quillshift", std::move(description)};
    }
    static int Within(int ordinal, int last) {
        if (ordinal < 1 || ordinal > last)
            throw Failure(9, u"Subscript out of range");
        return ordinal;
    }
    int Present(std::string_view key) const {
        const int ordinal = OrdinalOf(key);
        if (ordinal == 0)
            throw Failure(5, u"Invalid procedure call or argument");
        return ordinal;
    }

    std::vector<Entry> entries_;
};

} // namespace quillshift
