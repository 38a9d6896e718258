#include "base/Utf8.h"
#include "controls/bitmaps/cAlphaDIBSection.h"
#include "controls/bitmaps/pcDibSection.h"
#include "controls/bitmaps/pcMemDC.h"
#include "support/DrawnList.h"
#include "support/Pixels.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillshift {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();

/// Writes down bitmaps, pixel by pixel, to be compared with what is stored.
class Bitmaps : public testing::Test {
protected:
    void List(const std::string& name, const DibSection& bitmap) {
        list.push_back("- " + name);
        ListPixels(bitmap.hDib(), list);
    }
    // The result of a change of one pixel.
    template <class Bitmap, class Change>
    void ListChanged(const std::string& name, Pixel pixel, Change change) {
        auto bitmap = BitmapOf<Bitmap>(1, {pixel});
        change(bitmap);
        List(name, bitmap);
    }

    void ListCopies();
    void ListBlends();
    void ListSizes();
    void ListColours();

    std::vector<std::string> list;
    const pcDibSection square =
        BitmapOf<pcDibSection>(2, {{200, 1, 1, 9}, {40, 2, 2, 9}, {0, 3, 3, 9}, {100, 4, 4, 9}});
};

void Bitmaps::ListCopies() {
    const int places[][6] = {{0, 0, -1, -1, 0, 0},         {1, 1, 1, 2, 1, 0},
                             {2, 2, -1, -1, 0, 0},         {-1, -1, -1, -1, 0, 0},
                             {0, 0, kMost, kMost, -2, -1}, {kMost, kMost, kMost, kMost, kMost, kMost}};
    for (const auto& [x, y, width, height, sourceX, sourceY] : places) {
        pcDibSection target;
        target.Create(3, 3);
        square.PaintPicture(target, x, y, width, height, sourceX, sourceY);
        List("copied to " + std::to_string(x) + "," + std::to_string(y), target);
    }
    for (const auto operation :
         {RasterOperation::Copy, RasterOperation::And, RasterOperation::Or, RasterOperation::Xor})
        ListChanged<pcDibSection>("joined to 6/6/6/6", {6, 6, 6, 6}, [&](pcDibSection& target) {
            square.PaintPicture(target, 0, 0, 1, 1, 1, 1, operation);
        });
    pcMemDC memory;
    square.PaintPicture(memory.hdc(2, 2), 0, 0);
    EXPECT_EQ(&memory.hdc(1, 2), memory.hdc(2, 2).hdc()) << "large enough is the same";
    pcDibSection target;
    target.Create(2, 2);
    memory.Draw(target, 1, 0);
    List("through a memory surface, from 1,0", target);
}

void Bitmaps::ListBlends() {
    const auto source = BitmapOf<cAlphaDIBSection>(1, {{50, 0, 128, 128}});
    for (const auto& [alpha, perPixel] :
         {std::pair{255, true}, {128, true}, {255, false}, {128, false}, {0, true}})
        ListChanged<cAlphaDIBSection>("composited by " + std::to_string(alpha) + (perPixel ? " a pixel" : ""),
                                      {100, 100, 100, 255}, [&](cAlphaDIBSection& target) {
                                          source.AlphaPaintPicture(target, 0, 0, -1, -1, 0, 0,
                                                                   static_cast<std::uint8_t>(alpha),
                                                                   perPixel);
                                      });
    for (const int alpha : {0, 64, 255}) {
        auto target = BitmapOf<pcDibSection>(2, {{100, 0, 40, 7}, {100, 0, 40, 7}});
        pcDibSection::CodeAlphaBlend(target, square, 1, 0, -1, -1, static_cast<std::uint8_t>(alpha));
        List("blended by " + std::to_string(alpha) + " from 1,0", target);
    }
    ListChanged<cAlphaDIBSection>("premultiplied", {255, 100, 1, 128},
                                  [](cAlphaDIBSection& bitmap) { bitmap.PreMultiplyAlpha(); });
}

void Bitmaps::ListSizes() {
    List("four by four", square.Resample(4, 4));
    List("one by one", square.Resample(1, 1));
    List("as it is", square.Resample(2, 2));
    List("a dot, three by two", BitmapOf<cAlphaDIBSection>(1, {{7, 8, 9, 10}}).Resample(2, 3));
    EXPECT_TRUE(square.Resample(0, 3).IsEmpty());
}

void Bitmaps::ListColours() {
    struct Target {
        int hue, luminance;
        float saturation;
    };
    for (const auto& [hue, luminance, saturation] :
         {Target{-1, -1, -1}, {85, -1, 0}, {-1, 255, 0}, {0, -1, -1}, {-1, 200, -3}, {255, -1, 9}})
        ListChanged<cAlphaDIBSection>(
            "ochre in hue " + std::to_string(hue) + ", luminance " + std::to_string(luminance),
            {0, 100, 200, 77},
            [&](cAlphaDIBSection& bitmap) { bitmap.AdjustHLS(hue, luminance, saturation); });
    for (const auto& [hue, luminance, saturation] :
         {std::tuple{1.0, 2.0, 1.0}, {1.0, 1.0, 0.0}, {2.0, 1.0, 0.5}, {1.0, 9.0, 9.0}})
        ListChanged<pcDibSection>("green, scaled", {0, 90, 50, 5}, [&](pcDibSection& bitmap) {
            bitmap.ModifyHLS(hue, luminance, saturation);
        });
    for (const double amount : {50.0, -50.0, 500.0})
        ListChanged<pcDibSection>("red, lightened", {0, 0, 100, 5},
                                  [&](pcDibSection& bitmap) { bitmap.Lighten(amount); });
    ListChanged<pcDibSection>("cleared", {1, 2, 3, 4}, [](pcDibSection& bitmap) { bitmap.Clear(); });
}

TEST_F(Bitmaps, AreAsStored) {
    ListCopies();
    ListBlends();
    ListSizes();
    ListColours();
    ExpectAsStored(DRAWN "/Bitmaps.txt", list);
}

TEST_F(Bitmaps, KeepTheirHandlesInOrder) {
    pcDibSection source = square;
    BitmapPicture dib;
    EXPECT_TRUE(source.CreateDIB(3, 2, dib));
    EXPECT_EQ(dib.bits, std::vector<std::uint8_t>(24)) << "owned by the caller";
    EXPECT_EQ(source.BytesPerScanLine(), 12);
    for (const int width : {0, kMost})
        EXPECT_FALSE(source.CreateDIB(width, 2, dib)) << width;

    source = BitmapOf<pcDibSection>(1, {{12, 12, 12, 12}});
    source.SetUseDrawDib(true);
    auto target = BitmapOf<pcDibSection>(1, {{10, 10, 10, 10}});
    source.PaintPicture(target, 0, 0, -1, -1, 0, 0, RasterOperation::Xor);
    EXPECT_EQ(PixelOf(target.hDib(), 0, 0)[0], 12) << "drawn as a picture, without an operation";
    EXPECT_TRUE(source.Create(2, 2) && source.UseDrawDib()) << "for the new picture, too";
    source.ClearUp();
    EXPECT_FALSE(source.UseDrawDib());
    EXPECT_EQ(source.hdc(), nullptr);
    EXPECT_EQ(source.hDib().bits, nullptr);
    EXPECT_EQ(source.Width(), 2) << "the size of what was there stays";
}

TEST_F(Bitmaps, SaveAFileOfKnownBytes) {
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

TEST(Hls, ConvertsEveryCornerOfTheColourSpaceAndBack) {
    const auto channel = [](int value) { return static_cast<std::uint8_t>(value); };
    for (int red = 0; red < 256; red += 15)
        for (int green = 0; green < 256; green += 15)
            for (int blue = 0; blue < 256; blue += 15) {
                const Colour colour = Rgb(channel(red), channel(green), channel(blue));
                ASSERT_EQ(ToRgb(ToHls(colour)), colour) << red << ' ' << green << ' ' << blue;
            }
}

} // namespace
} // namespace quillshift
