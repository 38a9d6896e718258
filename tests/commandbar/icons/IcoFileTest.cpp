#include "commandbar/icons/IcoFile.h"
#include "commandbar/icons/DibReader.h"
#include "support/IconFiles.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

const Pixel kRed{0, 0, 255, 255};
const Pixel kGreen{0, 255, 0, 255};
const Pixel kBlue{255, 0, 0, 255};

Pixel Corner(const std::optional<cAlphaDIBSection>& icon) {
    return icon ? PixelOf(icon->hDib(), 0, 0) : Pixel{-1, -1, -1, -1};
}

TEST(IconFile, GivesTheImageThatSuitsTheSize) {
    const std::string file = IconFile({SolidImage(48, kBlue), SolidImage(16, kRed), SolidImage(32, kGreen)});
    for (const auto& [side, expected] :
         {std::pair{16, kRed}, {10, kRed}, {17, kGreen}, {32, kGreen}, {48, kBlue}, {64, kBlue}}) {
        const auto icon = ReadIcon(file, {side, side});
        ASSERT_TRUE(icon);
        EXPECT_EQ(icon->Width(), side);
        EXPECT_EQ(icon->Height(), side);
        EXPECT_EQ(Corner(icon), expected) << side;
        EXPECT_EQ(PixelOf(icon->hDib(), side - 1, side - 1), expected) << side;
    }
}

// Two pixels by one in each depth: blue, then green where the colours allow; the second one masked out where
// the pixels have no alpha of their own.
TEST(IconFile, ReadsEveryDepthWithItsMask) {
    const std::string mask("\x40\0\0\0", 4);
    const std::string palette("\xFF\0\0\0\0\xFF\0\0", 8);
    struct Case {
        std::string image;
        Pixel first, second;
    };
    const std::vector<Case> cases{
        {BitmapHeader(2, 2, 1) + palette + std::string("\x40\0\0\0", 4) + mask, kBlue, {0, 255, 0, 0}},
        {BitmapHeader(2, 2, 4, 2) + palette + std::string("\x01\0\0\0", 4) + mask, kBlue, {0, 255, 0, 0}},
        {BitmapHeader(2, 2, 8, 2) + palette + std::string("\0\1\0\0", 4) + mask, kBlue, {0, 255, 0, 0}},
        {BitmapHeader(2, 2, 8, 2) + palette + std::string("\x77\0\0\0", 4) + mask,
         {0, 0, 0, 255}, // a number that the palette hasn't
         {255, 0, 0, 0}},
        {BitmapHeader(2, 2, 24) + std::string("\xFF\0\0\0\xFF\0\0\0", 8) + mask, kBlue, {0, 255, 0, 0}},
        {BitmapHeader(2, 2, 32) + std::string("\xFF\0\0\0\0\xFF\0\0", 8) + mask, kBlue, {0, 255, 0, 0}},
        {BitmapHeader(2, 2, 32) + std::string("\xFF\0\0\x80\0\xFF\0\1", 8), {255, 0, 0, 128}, {0, 255, 0, 1}},
    };
    for (const Case& c : cases) {
        const auto icon = ReadIcon(IconFile({c.image}), {2, 1});
        EXPECT_EQ(Corner(icon), c.first) << &c - cases.data();
        EXPECT_EQ(icon ? PixelOf(icon->hDib(), 1, 0) : Pixel{}, c.second) << &c - cases.data();
    }
}

TEST(IconFile, SurvivesEveryCutAndEveryDamagedByte) {
    const std::string file =
        IconFile({SolidImage(2, kRed), BitmapHeader(2, 4, 1) + std::string(8 + 8 + 8, '\1')});
    for (std::size_t length = 0; length < 6 + 2 * 16 + 40; ++length)
        EXPECT_FALSE(ReadIcon(file.substr(0, length), {2, 2})) << length;
    for (std::size_t at = 0; at < file.size(); ++at)
        for (const char damage : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
            std::string damaged = file;
            damaged[at] = damage;
            const auto icon = ReadIcon(damaged, {2, 2});
            EXPECT_TRUE(!icon || icon->Width() == 2) << at;
        }
}

} // namespace
} // namespace quillshift
