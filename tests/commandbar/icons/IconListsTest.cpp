#include "base/Error.h"
#include "commandbar/icons/cCommandBarImageList.h"
#include "commandbar/icons/clsImageList.h"
#include "support/CompositeRecorder.h"
#include "support/FakeDesktop.h"
#include "support/FakePlatform.h"
#include "support/IconFiles.h"

#include <gtest/gtest.h>

#include <map>

namespace quillshift {
namespace {

const Pixel kNothing{0, 0, 0, 0};
constexpr Colour kDisabled = Rgb(200, 100, 50);
constexpr Colour kHighlight = Rgb(10, 20, 250);

/// A list of one-pixel icons, so that a look is one pixel.
class IconLists : public testing::Test {
protected:
    IconLists() {
        list.IconSizeX = list.IconSizeY = 1;
        list.Create();
        bar.SetDisabledColor(kDisabled);
        bar.SetHighlightColor(kHighlight);
    }
    void Add(Pixel pixel, std::string_view key = {}) {
        files.files[u"icon"] = IconFile({SolidImage(1, pixel)});
        list.AddFromFile(u"icon", clsImageList::ImageType::Icon, key);
    }
    Pixel Drawn(int iconIndex, IconMode mode) {
        bar.Draw(surface, iconIndex, mode, 0, 0);
        const auto call = surface.Take();
        return call.pixels.size() == 1 ? call.pixels.front() : kNothing;
    }

    FakeFiles files;
    FakeSystemColours desktop;
    clsImageList list{files, desktop};
    cCommandBarImageList bar;
    CompositeRecorder surface;
};

TEST_F(IconLists, KeepNumbersRightWhenAFileIsMissing) {
    Add({1, 1, 1, 255}, "A");
    list.AddFromFile(u"missing", clsImageList::ImageType::Icon, "B");
    Add({3, 3, 3, 255}, "C");
    EXPECT_EQ(list.ImageCount(), 3);
    EXPECT_EQ(list.ItemIndex("C"), 3);
    list.DrawImage("B", surface, {0, 0});
    EXPECT_EQ(surface.Take().pixels, std::vector{kNothing});
    list.RemoveImage("A");
    EXPECT_EQ(list.ItemKey(1), "B");
    list.SetItemKey(1, "D");
    list.DrawImage(2, surface, {5, 6});
    const auto call = surface.Take();
    EXPECT_EQ(call.pixels, (std::vector<Pixel>{{3, 3, 3, 255}}));
    EXPECT_EQ(call.target, RectAt(5, 6, 1, 1));
    EXPECT_TRUE(list.KeyExists("D") && !list.KeyExists("B"));
}

TEST_F(IconLists, DrawASelectedOrCutImageHalfInAColourAndOneOfAnotherList) {
    list.AddFromHandle(BitmapOf<cAlphaDIBSection>(2, {{1, 1, 1, 255}, {3, 3, 3, 255}}),
                       clsImageList::ImageType::Bitmap, "A");
    clsImageList other(files, desktop);
    other.IconSizeX = other.IconSizeY = 1;
    other.Create();
    other.AddFromHandle(BitmapOf<cAlphaDIBSection>(2, {{9, 9, 9, 255}, {9, 9, 9, 255}}));
    const auto drawn = [this](int image, const ImageDrawing& how) {
        list.DrawImage(image, surface, {0, 0}, how);
        const auto call = surface.Take();
        return call.pixels.empty() ? Pixel{-1, -1, -1, -1} : call.pixels.front();
    };
    EXPECT_EQ(list.ImageCount(), 2) << "a bitmap is cut";
    EXPECT_EQ(drawn(2, {}), (Pixel{3, 3, 3, 255}));
    const ImageDrawing selected{.selected = true, .colour = Rgb(255, 101, 3)};
    EXPECT_EQ(drawn(2, selected), (Pixel{3, 52, 129, 255}));
    desktop.colours[SystemColour::Window] = Rgb(5, 7, 9);
    EXPECT_EQ(drawn(2, {.cut = true}), (Pixel{6, 5, 4, 255})) << "without a colour, that of windows";
    EXPECT_EQ(drawn(1, {.otherList = other.hIml()}), (Pixel{9, 9, 9, 255}));
    EXPECT_EQ(drawn(2, {.otherList = other.hIml()})[0], -1) << "not in that list";
    other.Destroy();
    EXPECT_EQ(drawn(1, {.otherList = other.hIml()})[0], -1);
}

TEST_F(IconLists, TakeOnTheDesktopsGreysIfAsked) {
    for (const auto greys : {clsImageList::Greys::AsTheyAre, clsImageList::Greys::TheDesktops})
        for (const int level : {128, 192, 223, 200}) {
            files.files[u"icon"] = IconFile({SolidImage(1, {level, level, level, 255})});
            list.AddFromFile(u"icon", clsImageList::ImageType::Icon, {}, greys);
        }
    desktop.colours[SystemColour::Light3D] = Rgb(3, 2, 1);
    list.AddFromFile(u"icon", clsImageList::ImageType::Icon, {}, clsImageList::Greys::TheDesktops);
    for (const auto& [image, pixel] : std::map<int, Pixel>{{2, {192, 192, 192, 255}},
                                                           {3, {223, 223, 223, 255}},
                                                           {5, {128, 128, 128, 255}},
                                                           {6, {200, 208, 212, 255}},
                                                           {7, {200, 208, 212, 255}},
                                                           {8, {200, 200, 200, 255}}}) {
        list.DrawImage(image, surface, {0, 0});
        EXPECT_EQ(surface.Take().pixels.front(), pixel) << image;
    }
    EXPECT_EQ(list.SystemColourDepth(), 24);
}

TEST_F(IconLists, LoadTheSharperImageForADenserDisplay) {
    files.files[u"icon"] = IconFile({SolidImage(16, {1, 1, 1, 255}), SolidImage(32, {2, 2, 2, 255})});
    for (const int density : {1, 2}) {
        list.IconSizeX = list.IconSizeY = 16;
        surface.density = density;
        list.OwnerHDC = &surface;
        list.Create();
        list.AddFromFile(u"icon");
        bar.InitialiseFromVariant(list.hIml());
        EXPECT_EQ(bar.IconWidth(), 16);
        for (const IconMode mode : {IconMode::Source, IconMode::Plain})
            for (const auto& [width, shown] : {std::pair{-1, 16}, {99, 16}, {8, 8}}) {
                bar.Draw(surface, 0, mode, 3, 4, width, 8);
                bar.Draw(surface, 0, mode, 3, 4, 0, width); // nothing to be seen
                const auto call = surface.Take();
                EXPECT_EQ(call.target, RectAt(3, 4, shown, 8));
                EXPECT_EQ(call.part, RectAt(0, 0, shown * density, 8 * density));
                EXPECT_EQ(call.pixels.front(), (Pixel{density, density, density, 255}));
            }
    }
}

TEST_F(IconLists, DeriveLooksByTheRules) {
    struct Case {
        Pixel icon;
        Pixel disabled, plain, highlighted;
    };
    const std::vector<Case> cases{
        // Black keeps the full shape, other colours by their darkness.
        {{0, 0, 0, 255}, {50, 100, 200, 255}, {0, 0, 0, 255}, {0, 0, 0, 255}},
        // Luminance (222 * 200 + 707 * 100 + 71 * 50) / 1000 = 118.65, so alpha 136.
        {{50, 100, 200, 255}, {26, 53, 106, 136}, {50, 100, 200, 255}, {50, 100, 200, 255}},
        // White alone is solid.
        {{255, 255, 255, 255}, {50, 100, 200, 255}, {255, 255, 255, 255}, {255, 255, 255, 255}},
        // The two greys: alpha 28 and 34, then 50 and 90. A neighbour of theirs is a colour like any other.
        {{227, 227, 227, 255}, {5, 10, 21, 28}, {44, 44, 44, 50}, {88, 7, 3, 90}},
        {{221, 221, 221, 255}, {6, 13, 26, 34}, {43, 43, 43, 50}, {88, 7, 3, 90}},
        {{227, 227, 221, 255}, {5, 11, 22, 29}, {227, 227, 221, 255}, {227, 227, 221, 255}},
        // A soft edge stays in proportion, and what is transparent vanishes.
        {{0, 0, 0, 128}, {25, 50, 100, 128}, {0, 0, 0, 128}, {0, 0, 0, 128}},
        {{227, 227, 227, 128}, {2, 5, 10, 14}, {22, 22, 22, 25}, {44, 3, 1, 45}},
        {{255, 255, 255, 0}, kNothing, kNothing, kNothing},
    };
    for (const Case& c : cases)
        Add(c.icon);
    bar.InitialiseFromVariant(list.hIml());
    for (int i = 0; i < static_cast<int>(cases.size()); ++i) {
        const Case& c = cases[static_cast<std::size_t>(i)];
        EXPECT_EQ(Drawn(i, IconMode::Disabled), c.disabled) << i;
        EXPECT_EQ(Drawn(i, IconMode::Plain), c.plain) << i;
        EXPECT_EQ(Drawn(i, IconMode::Highlighted), c.highlighted) << i;
        const int alpha = c.icon[3];
        const Pixel premultiplied{c.icon[0] * alpha / 255, c.icon[1] * alpha / 255, c.icon[2] * alpha / 255,
                                  alpha};
        EXPECT_EQ(Drawn(i, IconMode::Source), premultiplied) << i;
    }
}

TEST(DisabledIcon, LosesItsWhiteUnlessThereIsNothingElse) {
    const Pixel white{255, 255, 255, 255};
    const Pixel grey{221, 221, 221, 255};
    auto monochrome = BitmapOf<cAlphaDIBSection>(3, {white, grey, {9, 9, 9, 0}});
    DeriveIcon(monochrome, IconMode::Disabled, kDisabled, kHighlight);
    EXPECT_EQ(PixelOf(monochrome.hDib(), 0, 0), (Pixel{50, 100, 200, 255}));
    auto coloured = BitmapOf<cAlphaDIBSection>(3, {white, grey, {254, 255, 255, 1}});
    DeriveIcon(coloured, IconMode::Disabled, kDisabled, kHighlight);
    EXPECT_EQ(PixelOf(coloured.hDib(), 0, 0), kNothing);
}

TEST_F(IconLists, MakeEachLookOnceAndKeepItWhenTheStripGrows) {
    for (int i = 0; i < 12; ++i)
        Add({i, i, i, 255});
    bar.InitialiseFromVariant(list.hIml());
    for (int i : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0, 9, 11})
        EXPECT_EQ(Drawn(i, IconMode::Plain), (Pixel{i, i, i, 255}));
    EXPECT_EQ(bar.count(), 12);
    EXPECT_EQ(bar.IndexOf(11, IconMode::Plain), 12);
    EXPECT_EQ(bar.IndexOf(11, IconMode::Disabled), 0);
    EXPECT_EQ(bar.IconIndexOf(12), 11);
    EXPECT_EQ(bar.IconIndexOf(13), -1);
    bar.DrawStrip(surface, 2, 0);
    const auto strip = surface.Take();
    EXPECT_EQ(strip.target, RectAt(2, 0, 20, 1));
    ASSERT_EQ(strip.pixels.size(), 20U);
    EXPECT_EQ(strip.pixels[7], (Pixel{7, 7, 7, 255}));
    EXPECT_EQ(strip.pixels[12], kNothing);
}

} // namespace
} // namespace quillshift
