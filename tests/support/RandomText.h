#pragma once

#include "base/Windows1251.h"

#include <array>
#include <random>
#include <string>

namespace quillshift {

/// Numbers and pieces of text by chance, the same ones at each run.
class RandomText {
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    /// From 0 to `limit` - 1.
    std::size_t Below(std::size_t limit) { return random_() % limit; }
    /// Letters, breaks of every kind, each character of a file, and what takes two units or half of them.
    std::u16string Piece() {
        static const auto kPieces = std::to_array<std::u16string>(
            {u"a", u"ёж", u"word", u"\r\n", u"\n", u"\r", u"\u2028", u"b\u2029", u"\xD83D\xDE00",
             u"\xD83D\xDE01", u"\xD83D", u"\xDE00", u"\u4E2D", u"", u"x\r\n\r\ny"});
        const std::size_t piece = Below(kPieces.size() + 5);
        const auto byte = static_cast<std::uint8_t>(Below(256));
        return piece < kPieces.size() ? kPieces[piece] : std::u16string(1, windows1251::FromByte(byte));
    }

private:
    std::mt19937 random_;
};

} // namespace quillshift
