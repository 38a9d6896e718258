#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quillshift {

/// A plain text as the bytes of its file, whose line breaks are CR LF here. Copies share them.
class PlainBytes {
public:
    PlainBytes() = default;
    /// A lone CR or LF becomes CR LF.
    explicit PlainBytes(std::string bytes);

    std::string_view View() const { return bytes_ ? std::string_view(*bytes_) : std::string_view(); }

    /// Whether they are the same ones; equal ones may be others.
    bool operator==(const PlainBytes&) const = default;

private:
    std::shared_ptr<const std::string> bytes_;
};

} // namespace quillshift
