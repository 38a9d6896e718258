#include "controls/qsProgressBar.h"
#include "support/DrawnList.h"
#include "support/FakeDesktop.h"
#include "support/RecordingSurface.h"
#include "support/TestsFolder.h"

#include <gtest/gtest.h>

namespace quillshift {
namespace {

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
    ExpectAsStored(TestsFolder() / "controls/drawn/qsProgressBar.txt", list);
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
