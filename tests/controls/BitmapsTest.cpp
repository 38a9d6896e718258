#include "base/Error.h"
#include "base/Utf8.h"
#include "controls/bitmaps/cAlphaDIBSection.h"
#include "controls/bitmaps/pcDibSection.h"
#include "controls/bitmaps/pcMemDC.h"
#include "support/Pixels.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillshift {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();

Pixel First(const DibSection& bitmap) {
    return PixelOf(bitmap.hDib(), 0, 0);
}

TEST(Bitmap, CopiesTheBlockThatLiesInBoth) {
    const auto source = BitmapOf<pcDibSection>(2, {{1, 1, 1, 1}, {2, 2, 2, 2}, {3, 3, 3, 3}, {4, 4, 4, 4}});
    struct Case {
        int x, y, width, height, sourceX, sourceY;
        std::array<int, 9> expected; // a digit for each pixel, from the top left
    };
    for (const Case& c : {Case{0, 0, -1, -1, 0, 0, {1, 2, 0, 3, 4, 0, 0, 0, 0}},
                          Case{1, 1, 1, 2, 1, 0, {0, 0, 0, 0, 2, 0, 0, 4, 0}},
                          Case{2, 2, -1, -1, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0, 1}},
                          Case{-1, -1, -1, -1, 0, 0, {4, 0, 0, 0, 0, 0, 0, 0, 0}},
                          Case{0, 0, kMost, kMost, -2, -1, {0, 0, 0, 0, 0, 1, 0, 0, 3}},
                          Case{kMost, kMost, kMost, kMost, kMost, kMost, {}}, Case{0, 0, 0, 0, 0, 0, {}}}) {
        pcDibSection target;
        target.Create(3, 3);
        source.PaintPicture(target, c.x, c.y, c.width, c.height, c.sourceX, c.sourceY);
        for (int i = 0; i < 9; ++i)
            EXPECT_EQ(PixelOf(target.hDib(), i % 3, i / 3)[0], c.expected[static_cast<std::size_t>(i)])
                << i << " at " << c.x;
    }
}

TEST(Bitmap, CompositesByBothAlphas) {
    const auto source = BitmapOf<cAlphaDIBSection>(1, {{50, 0, 128, 128}});
    struct Case {
        std::uint8_t constantAlpha;
        bool perPixel;
        Pixel expected;
    };
    for (const Case& c : {Case{255, true, {100, 50, 178, 255}},   // 50 + 100 * 127 / 255, ...
                          Case{128, true, {100, 75, 139, 255}},   // alpha 128 * 128 / 255 = 64.25
                          Case{128, false, {75, 50, 114, 191}},   // half of each
                          Case{0, true, {100, 100, 100, 255}}}) { // nothing of the source
        auto target = BitmapOf<cAlphaDIBSection>(1, {{100, 100, 100, 255}});
        source.AlphaPaintPicture(target, 0, 0, -1, -1, 0, 0, c.constantAlpha, c.perPixel);
        EXPECT_EQ(First(target), c.expected) << int{c.constantAlpha} << c.perPixel;
    }
}

TEST(Bitmap, SavesAFileOfKnownBytes) {
    const TemporaryFolder folder;
    const auto bitmap = BitmapOf<pcDibSection>(1, {{1, 2, 3, 4}, {5, 6, 7, 8}});
    EXPECT_TRUE(bitmap.SavePicture(FromUtf8((folder / "Фон.bmp").string())));
    const std::string expected("BM\x42\0\0\0\0\0\0\0\x3A\0\0\0"             // 66 bytes, pixels at 58
                               "\x28\0\0\0\x01\0\0\0\x02\0\0\0\x01\0\x20\0" // 40, 1 x 2, 1 plane, 32 bits
                               "\0\0\0\0\x08\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                               "\5\6\7\10\1\2\3\4",
                               66);
    EXPECT_EQ(Contents(folder / "Фон.bmp"), expected);
}

TEST(Bitmap, ResamplesBetweenItsPixelsFromTheBottomUp) {
    const auto square =
        BitmapOf<pcDibSection>(2, {{200, 0, 0, 9}, {40, 0, 0, 9}, {0, 0, 0, 9}, {100, 0, 0, 9}});
    const pcDibSection large = square.Resample(4, 4); // a quarter of the way with each line and column
    EXPECT_EQ(PixelOf(large.hDib(), 0, 3), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(PixelOf(large.hDib(), 2, 1), (Pixel{85, 0, 0, 0})); // half of 100 and 70
    EXPECT_EQ(PixelOf(large.hDib(), 3, 2), (Pixel{76, 0, 0, 0})); // 50 / 4 + 85 * 3 / 4
    EXPECT_EQ(PixelOf(square.Resample(1, 1).hDib(), 0, 0), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(PixelOf(square.Resample(2, 2).hDib(), 1, 0), (Pixel{40, 0, 0, 9})) << "a copy, alpha and all";
    const auto dot = BitmapOf<cAlphaDIBSection>(1, {{7, 8, 9, 10}});
    EXPECT_EQ(PixelOf(dot.Resample(2, 3).hDib(), 2, 0), (Pixel{7, 8, 9, 0}));
    EXPECT_TRUE(dot.Resample(0, 3).IsEmpty());
}

TEST(Hls, ConvertsEveryCornerOfTheColourSpaceAndBack) {
    const Hls pale = ToHls(Rgb(204, 204, 255));
    EXPECT_NEAR(pale.hue, 4, 1e-5);
    EXPECT_NEAR(pale.luminance, 0.9, 1e-5);
    EXPECT_NEAR(pale.saturation, 1, 1e-5);
    EXPECT_EQ(ToHls(Rgb(255, 0, 255)).hue, -1);
    const auto channel = [](int value) { return static_cast<std::uint8_t>(value); };
    for (int red = 0; red < 256; red += 15)
        for (int green = 0; green < 256; green += 15)
            for (int blue = 0; blue < 256; blue += 15) {
                const Colour colour = Rgb(channel(red), channel(green), channel(blue));
                ASSERT_EQ(ToRgb(ToHls(colour)), colour) << red << ' ' << green << ' ' << blue;
            }
}

TEST(AlphaBitmap, TakesOnHueAndLuminance) {
    const Pixel ochre{0, 100, 200, 77};
    struct Case {
        int hue, luminance;
        float saturation;
        Pixel expected;
    };
    for (const Case& c : {Case{-1, -1, -1, ochre},                // nothing asked for, nothing done
                          Case{85, -1, 0, {0, 200, 200, 77}},     // 85 is yellow
                          Case{-1, 255, 0, {255, 255, 255, 77}},  // white
                          Case{0, -1, -1, {100, 100, 100, 77}},   // grey
                          Case{-1, 200, -3, {200, 200, 200, 77}}, // held at grey
                          Case{255, -1, 9, {200, 0, 200, 77}}}) { // the circle's end, as full as can be
        auto bitmap = BitmapOf<cAlphaDIBSection>(1, {ochre});
        bitmap.AdjustHLS(c.hue, c.luminance, c.saturation);
        EXPECT_EQ(First(bitmap), c.expected) << c.hue << ' ' << c.luminance;
    }
}

TEST(Bitmap, DrawnAsAPictureKnowsNoRasterOperation) {
    auto source = BitmapOf<pcDibSection>(1, {{12, 12, 12, 12}});
    for (const bool drawn : {false, true}) {
        auto target = BitmapOf<pcDibSection>(1, {{10, 10, 10, 10}});
        source.SetUseDrawDib(drawn);
        source.PaintPicture(target, 0, 0, -1, -1, 0, 0, RasterOperation::Xor);
        EXPECT_EQ(First(target)[0], drawn ? 12 : 6);
    }
    EXPECT_TRUE(source.Create(2, 2));
    EXPECT_TRUE(source.UseDrawDib()) << "for the new picture, too";
    EXPECT_EQ(source.hdc(), &source);
    source.ClearUp();
    EXPECT_FALSE(source.UseDrawDib());
    EXPECT_EQ(source.hdc(), nullptr);
    EXPECT_EQ(source.hDib().bits, nullptr);
    EXPECT_EQ(source.Width(), 2) << "the size of what was there stays";
}

TEST(Bitmap, MakesPixelsThatTheCallerOwns) {
    pcDibSection bitmap;
    BitmapPicture dib;
    EXPECT_TRUE(bitmap.CreateDIB(3, 2, dib));
    EXPECT_EQ(dib.bits, std::vector<std::uint8_t>(24));
    EXPECT_EQ(bitmap.BytesPerScanLine(), 12);
    EXPECT_TRUE(bitmap.IsEmpty());
    EXPECT_FALSE(bitmap.CreateDIB(0, 2, dib));
    EXPECT_FALSE(bitmap.CreateDIB(kMost, 2, dib));
}

TEST(ProgressBitmap, BlendsASourceOverADestination) {
    auto target = BitmapOf<pcDibSection>(2, {{100, 0, 40, 9}, {100, 0, 40, 9}});
    const auto source = BitmapOf<pcDibSection>(1, {{200, 50, 40, 1}, {0, 0, 0, 1}});
    pcDibSection::CodeAlphaBlend(target, source, 1, 0, -1, -1, 64); // about a quarter of the source
    EXPECT_EQ(First(target), (Pixel{100, 0, 40, 9}));
    EXPECT_EQ(PixelOf(target.hDib(), 1, 0), (Pixel{125, 13, 40, 9}));
    pcDibSection::CodeAlphaBlend(target, source, 0, 0, 0, 1, 255);
    EXPECT_EQ(First(target), (Pixel{100, 0, 40, 9})) << "no width, no change";
    pcMemDC memory;
    target.PaintPicture(memory.hdc(2, 1), 0, 0);
    EXPECT_EQ(&memory.hdc(1, 1), &memory.hdc(2, 1)) << "grows on demand, and never shrinks";
    pcDibSection copy;
    copy.Create(2, 1);
    memory.Draw(copy, 1, 0);
    EXPECT_EQ(First(copy), (Pixel{125, 13, 40, 9}));
}

TEST(ProgressBitmap, ScalesItsColoursAndStopsAtWhite) {
    const auto changed = [](auto change) {
        auto bitmap = BitmapOf<pcDibSection>(1, {{0, 0, 100, 5}});
        change(bitmap);
        return First(bitmap);
    };
    EXPECT_EQ(changed([](auto& bitmap) { bitmap.ModifyHLS(1, 2, 1); }), (Pixel{0, 0, 200, 5}));
    EXPECT_EQ(changed([](auto& bitmap) { bitmap.ModifyHLS(1, 1, 0); }), (Pixel{50, 50, 50, 5}));
    EXPECT_EQ(changed([](auto& bitmap) { bitmap.Lighten(50); }), (Pixel{0, 0, 150, 5}));
    EXPECT_EQ(changed([](auto& bitmap) { bitmap.Lighten(500); }), (Pixel{255, 255, 255, 5}));
    EXPECT_EQ(changed([](auto& bitmap) { bitmap.ModifyHLS(-99, -99, -99); })[3], 5) << "out of all ranges";
    EXPECT_EQ(changed([](auto& bitmap) { bitmap.Clear(); }), (Pixel{0, 0, 0, 0}));
}

} // namespace
} // namespace quillshift
