#pragma once

#include "controls/bitmaps/cAlphaDIBSection.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillshift {

/// Bytes of a file, read as little-endian numbers. What lies behind the end reads as nothing.
class FileBytes {
public:
    explicit FileBytes(std::string_view bytes) : bytes_(bytes) {}

    std::size_t Size() const { return bytes_.size(); }
    std::uint8_t Byte(std::size_t at) const {
        return at < bytes_.size() ? static_cast<std::uint8_t>(bytes_[at]) : std::uint8_t{0};
    }
    std::uint16_t Word(std::size_t at) const {
        return static_cast<std::uint16_t>(Byte(at) | (static_cast<unsigned>(Byte(at + 1)) << 8U));
    }
    std::uint32_t Long(std::size_t at) const {
        return Word(at) | (static_cast<std::uint32_t>(Word(at + 2)) << 16U);
    }
    /// The rest from `at` on; empty if that lies behind the end.
    FileBytes From(std::size_t at) const {
        return FileBytes(at < bytes_.size() ? bytes_.substr(at) : std::string_view());
    }

private:
    std::string_view bytes_;
};

/// The header of a bitmap inside a file, without compression, of 1, 4, 8, 24 or 32 bits a pixel.
struct DibHeader {
    int width = 0;
    int height = 0; ///< of all lines: an icon's mask lines count
    int bitsPerPixel = 0;
    std::size_t paletteAt = 0;
    std::size_t paletteColours = 0;

    /// Behind header and palette, where the pixels of an icon stand.
    std::size_t End() const { return paletteAt + paletteColours * 4; }
    /// Lines are filled up to four bytes.
    std::size_t LineBytes() const { return LineBytes(bitsPerPixel); }
    std::size_t LineBytes(int bits) const {
        return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 31) / 32 * 4;
    }
};

/// Nothing for a header that is broken, of another kind or of a size out of reason.
std::optional<DibHeader> ReadDibHeader(const FileBytes& bytes);

/// The first `height` lines at `pixelsAt`, as straight (not premultiplied) colours. Alpha is 255 unless the
/// pixels have 32 bits. Nothing if the bytes end before.
std::optional<cAlphaDIBSection> ReadPixels(const FileBytes& bytes, const DibHeader& header,
                                           std::size_t pixelsAt, int height);

/// The image of a bitmap file.
std::optional<cAlphaDIBSection> ReadBitmap(std::string_view bytes);

} // namespace quillshift
