#pragma once

#include <random>
#include <string>
#include <string_view>

namespace quillshift {

/// Numbers and pieces of text by chance, the same ones at each run.
class RandomText {
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    /// From 0 to `limit` - 1.
    std::size_t Below(std::size_t limit) { return random_() % limit; }
    /// Letters, breaks of every kind, a blank that doesn't break, and what takes two units or half of them.
    std::u16string Piece() {
        static constexpr std::u16string_view kPieces[] = {u"a",
                                                          u"a",
                                                          u"Ё",
                                                          u"ёж",
                                                          u"word",
                                                          u"\u00A0",
                                                          u" ",
                                                          u"\t",
                                                          u"\r\n",
                                                          u"\n",
                                                          u"\r",
                                                          u"\u2028",
                                                          u"b\u2029",
                                                          u"\xD83D\xDE00",
                                                          u"\xD83D\xDE01",
                                                          u"\xD83D",
                                                          u"\xDE00",
                                                          u"\u4E2D",
                                                          u"",
                                                          u"x\r\n\r\ny"};
        return std::u16string(kPieces[Below(std::size(kPieces))]);
    }

private:
    std::mt19937 random_;
};

} // namespace quillshift
