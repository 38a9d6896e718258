#pragma once

#include "platform/SettingsBackend.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace quillshift {

/// The settings tree in memory. Remembers what was read, in order, and lets a test look at what is stored.
class FakeSettings : public SettingsBackend {
public:
    std::optional<StoredValue> Read(std::string_view path, std::string_view name) override {
        namesRead.emplace_back(name);
        const auto found = values.find(KeyOf(path, name));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void Write(std::string_view path, std::string_view name, const StoredValue& value) override {
        values[KeyOf(path, name)] = value;
    }

    using Key = std::pair<std::string, std::string>;
    std::map<Key, StoredValue> values; ///< keys in lower case
    std::vector<std::string> namesRead;

private:
    static std::string Lower(std::string_view text) {
        std::string lower(text);
        const auto toLower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
        std::transform(lower.begin(), lower.end(), lower.begin(), toLower);
        return lower;
    }
    static Key KeyOf(std::string_view path, std::string_view name) { return {Lower(path), Lower(name)}; }
};

} // namespace quillshift
