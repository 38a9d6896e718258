#pragma once

#include "base/Colour.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillshift {

/// The fonts of a document by their numbers, filled word by word as they are read.
class RtfFontTable {
public:
    /// A font begins; the one before it is complete.
    void Begin(int number, int defaultPage);
    void SetCharset(int charset, int defaultPage);
    /// A part of the font's name; a semicolon ends it.
    void AddName(std::string_view bytes);

    /// Empty for a font that is not in the table.
    std::u16string_view Name(int number) const;
    /// `defaultPage` for a font that is not in the table.
    int CodePage(int number, int defaultPage) const;

private:
    // Broken or hostile tables must not eat memory.
    static constexpr std::size_t kMostFonts = 4096;
    static constexpr std::size_t kLongestName = 128;

    struct Font {
        std::u16string name;
        int codePage = 0;
        bool complete = false;
    };
    std::unordered_map<int, Font> fonts_;
    Font* current_ = nullptr; // the map keeps its elements in place
};

/// The colours of a document in order; the first one is mostly empty and means none.
class RtfColourTable {
public:
    void SetRed(int value) { Open() = Rgb(Part(value), Open().Green(), Open().Blue()); }
    void SetGreen(int value) { Open() = Rgb(Open().Red(), Part(value), Open().Blue()); }
    void SetBlue(int value) { Open() = Rgb(Open().Red(), Open().Green(), Part(value)); }
    /// Each semicolon in the bytes completes a colour.
    void AddSeparators(std::string_view bytes);

    std::optional<Colour> Find(int number) const;

private:
    static constexpr std::size_t kMostColours = 4096;

    static std::uint8_t Part(int value);
    Colour& Open();

    std::vector<std::optional<Colour>> colours_;
    std::optional<Colour> open_;
};

} // namespace quillshift
