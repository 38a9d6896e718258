#include "base/Utf8.h"
#include "controls/bitmaps/cAlphaDIBSection.h"
#include "controls/bitmaps/pcDibSection.h"
#include "controls/bitmaps/pcMemDC.h"
#include "controls/qsProgressBar.h"
#include "support/DrawnList.h"
#include "support/Pixels.h"
#include "support/RecordingSurface.h"

#include <span>

namespace quillshift {
namespace {

constexpr int kMost = std::numeric_limits<int>::max();

using Lines = std::vector<std::string>;

void List(const std::string& name, const DibSection& bitmap, Lines& list) {
    list.push_back("- " + name);
    ListPixels(bitmap.hDib(), list);
}

const auto kSquare = BitmapOf<pcDibSection>(2, {{200, 1, 1, 9}, {40, 2, 2, 9}, {0, 3, 3, 9}, {100, 4, 4, 9}});

void ListCopies(Lines& list) {
    const int places[][6] = {{0, 0, -1, -1, 0, 0},         {1, 1, 1, 2, 1, 0},
                             {2, 2, -1, -1, 0, 0},         {-1, -1, -1, -1, 0, 0},
                             {0, 0, kMost, kMost, -2, -1}, {kMost, kMost, kMost, kMost, kMost, kMost}};
    pcDibSection target;
    for (const auto& [x, y, width, height, sourceX, sourceY] : places) {
        target.Create(3, 3);
        kSquare.PaintPicture(target, x, y, width, height, sourceX, sourceY);
        List("copied to " + std::to_string(x) + "," + std::to_string(y), target, list);
    }
    pcMemDC memory;
    kSquare.PaintPicture(memory.hdc(2, 2), 0, 0);
    EXPECT_EQ(&memory.hdc(1, 2), &memory.hdc(2, 2)) << "large enough is the same";
    target.Create(2, 2);
    memory.Draw(target, 1, 0);
    List("through a memory surface, from 1,0", target, list);
    for (const auto& [width, height] : {std::pair{4, 4}, {1, 1}, {2, 2}, {0, 3}})
        List("resampled to " + std::to_string(width), kSquare.Resample(height, width), list);
    List("a dot, three by two", BitmapOf<cAlphaDIBSection>(1, {{7, 8, 9, 10}}).Resample(2, 3), list);
}

template <class Bitmap>
struct Change {
    const char* name;
    Pixel before;
    void (*make)(Bitmap&);
};

void Composite(cAlphaDIBSection& target, std::uint8_t alpha, bool perPixel) {
    BitmapOf<cAlphaDIBSection>(1, {{50, 0, 128, 128}})
        .AlphaPaintPicture(target, 0, 0, -1, -1, 0, 0, alpha, perPixel);
}
const Change<cAlphaDIBSection> kAlphaChanges[] = {
    {"composited", {100, 100, 100, 255}, [](auto& to) { Composite(to, 255, true); }},
    {"composited by half", {100, 100, 100, 255}, [](auto& to) { Composite(to, 128, true); }},
    {"composited flat by half", {100, 100, 100, 255}, [](auto& to) { Composite(to, 128, false); }},
    {"composited by nothing", {100, 100, 100, 255}, [](auto& to) { Composite(to, 0, true); }},
    {"premultiplied", {255, 100, 1, 128}, [](auto& to) { to.PreMultiplyAlpha(); }},
    {"nothing told", {0, 100, 200, 77}, [](auto& to) { to.AdjustHLS(-1, -1, -1); }},
    {"yellow", {0, 100, 200, 77}, [](auto& to) { to.AdjustHLS(85, -1, 0); }},
    {"white", {0, 100, 200, 77}, [](auto& to) { to.AdjustHLS(-1, 255, 0); }},
    {"grey", {0, 100, 200, 77}, [](auto& to) { to.AdjustHLS(0, -1, -1); }},
    {"held at grey", {0, 100, 200, 77}, [](auto& to) { to.AdjustHLS(-1, 200, -3); }},
    {"as full as can be", {0, 100, 200, 77}, [](auto& to) { to.AdjustHLS(255, -1, 9); }},
};

void Join(pcDibSection& target, RasterOperation operation) {
    kSquare.PaintPicture(target, 0, 0, 1, 1, 1, 1, operation);
}
void Blend(pcDibSection& target, std::uint8_t alpha) {
    pcDibSection::CodeAlphaBlend(target, kSquare, 0, 0, -1, -1, alpha);
}
const Change<pcDibSection> kProgressChanges[] = {
    {"and", {6, 6, 6, 6}, [](auto& to) { Join(to, RasterOperation::And); }},
    {"or", {6, 6, 6, 6}, [](auto& to) { Join(to, RasterOperation::Or); }},
    {"xor", {6, 6, 6, 6}, [](auto& to) { Join(to, RasterOperation::Xor); }},
    {"blended by none", {100, 0, 40, 7}, [](auto& to) { Blend(to, 0); }},
    {"blended by a quarter", {100, 0, 40, 7}, [](auto& to) { Blend(to, 64); }},
    {"blended by all", {100, 0, 40, 7}, [](auto& to) { Blend(to, 255); }},
    {"twice as light", {0, 90, 50, 5}, [](auto& to) { to.ModifyHLS(1, 2, 1); }},
    {"grey", {0, 90, 50, 5}, [](auto& to) { to.ModifyHLS(1, 1, 0); }},
    {"another hue", {0, 90, 50, 5}, [](auto& to) { to.ModifyHLS(2, 1, 0.5); }},
    {"held at white", {0, 90, 50, 5}, [](auto& to) { to.ModifyHLS(1, 9, 9); }},
    {"lightened", {0, 0, 100, 5}, [](auto& to) { to.Lighten(50); }},
    {"darkened", {0, 0, 100, 5}, [](auto& to) { to.Lighten(-50); }},
    {"cleared", {1, 2, 3, 4}, [](auto& to) { to.Clear(); }},
};

template <class Bitmap>
void ListChanges(std::span<const Change<Bitmap>> changes, Lines& list) {
    for (const auto& [name, before, make] : changes) {
        auto bitmap = BitmapOf<Bitmap>(1, {before});
        make(bitmap);
        List(name, bitmap, list);
    }
}

TEST(Bitmaps, AreAsStored) {
    Lines list;
    ListCopies(list);
    ListChanges<cAlphaDIBSection>(kAlphaChanges, list);
    ListChanges<pcDibSection>(kProgressChanges, list);
    ExpectAsStored("controls/drawn/Bitmaps.txt", list);
}

TEST(Bitmaps, SaveAFileOfKnownBytes) {
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

// Two by two: blue over green on the left, red over black on the right.
BitmapPicture Square() {
    return {2, 2, {0, 255, 0, 255, 0, 0, 0, 255, 255, 0, 0, 255, 0, 0, 255, 255}};
}

struct ProgressBarTest : testing::Test {
    qsProgressBar bar;
    FakeSystemColours colours;
    FakeTheme theme;

    std::vector<std::string> Drawn(Size size) const {
        RecordingSurface surface;
        bar.Paint(surface, size, colours, theme);
        return surface.drawn;
    }
};

TEST_F(ProgressBarTest, IsPaintedInEachStyleAsStored) {
    std::vector<std::string> list;
    const auto add = [&](const std::string& heading, Size size) {
        list.push_back("- " + heading);
        for (const std::string& line : Drawn(size))
            list.push_back(line);
    };
    bar.Value = 50;
    add("plain", {104, 20});
    bar.Segments = true;
    bar.Appearance = BorderLook::Edge;
    add("segments and a full edge", {104, 20});
    add("upright", {20, 104});
    bar.Value = 7;
    add("not yet one segment", {104, 20});
    bar.Value = 50;
    bar.Appearance = BorderLook::Line;
    bar.BorderStyle = 0;
    bar.ShowText = true;
    bar.Text = u"R&D";
    for (const TextAlign align : {TextAlign::Near, TextAlign::Centre, TextAlign::Far}) {
        bar.TextAlignX = bar.TextAlignY = align;
        add("text on both sides of the bar's end", {100, 20});
    }
    bar.ShowText = bar.Segments = false;
    bar.BorderStyle = 2;
    bar.Picture = bar.BarPicture = Square();
    bar.Value = 100;
    add("tiles that line up, in a line", {7, 5});
    bar.BackPictureMode = bar.BarPictureMode = PictureMode::Stretch;
    add("stretched", {7, 5});
    bar.Value = 50;
    bar.XpStyle = bar.ShowText = true;
    add("a theme that isn't there", {100, 20});
    theme.name = u"NormalColor";
    add("themed", {100, 20});
    add("themed and upright", {20, 100});
    theme.missingPart = 3;
    bar.Picture = bar.BarPicture = {};
    add("a theme that fails on the way", {100, 20});
    ExpectAsStored("controls/drawn/qsProgressBar.txt", list);
}

TEST_F(ProgressBarTest, HoldsWhatIsDoneBetweenNothingAndAll) {
    constexpr std::array<std::int32_t, 4> kCases[] = {
        {0, 100, 25, 25}, {-100, 100, 0, 50}, {0, 100, 101, 100}, {0, 100, -1, 0},
        {5, 5, 5, 0},     {100, 0, 75, 25},   {0, 3, 3, 100},     {INT32_MIN, INT32_MAX, INT32_MAX, 100}};
    for (const auto& [least, most, value, percent] : kCases) {
        bar.Min = least;
        bar.Max = most;
        bar.Value = value;
        EXPECT_EQ(bar.Percent(), percent) << least << " " << most << " " << value;
    }
}

TEST_F(ProgressBarTest, ChangesTheColoursOfItsPictures) {
    bar.BarPicture = bar.Picture = Square();
    bar.ModifyBarPicture(1, 0.5, 1);
    bar.ModifyPicture(1, 1, 0);
    EXPECT_EQ(PixelOf(bar.BarPicture.View(), 0, 0), (Pixel{128, 0, 0, 255}));
    EXPECT_EQ(PixelOf(bar.BarPicture.View(), 1, 1), (Pixel{0, 0, 0, 255}));
    EXPECT_EQ(PixelOf(bar.Picture.View(), 0, 1), (Pixel{128, 128, 128, 255}));
    qsProgressBar().ModifyPicture(1, 1, 1); // there is none
}

} // namespace
} // namespace quillshift
