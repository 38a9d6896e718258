#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

enum class ValueType { Text = 1, Number = 4 };

struct StoredValue {
    ValueType type = ValueType::Text;
    std::string data; ///< Windows-1251 bytes, or 4 bytes with the low one first

    bool operator==(const StoredValue&) const = default;
};

/// A per-user tree of typed values that outlives the program and is shared by its running copies. Paths and
/// names compare without regard to ASCII case. Nothing here fails visibly.
class SettingsBackend {
public:
    virtual ~SettingsBackend() = default;

    /// Nothing if the path or the value is missing or can't be read.
    virtual std::optional<StoredValue> Read(std::string_view path, std::string_view name) = 0;
    /// Stored for good when the call returns; a value that can't be stored leaves no trace.
    virtual void Write(std::string_view path, std::string_view name, const StoredValue& value) = 0;
};

} // namespace quillshift
