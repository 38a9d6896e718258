#include "base/Error.h"
#include "commandbar/icons/DibReader.h"
#include "commandbar/icons/IcoFile.h"
#include "commandbar/icons/cCommandBarImageList.h"
#include "commandbar/icons/clsImageList.h"
#include "support/DrawnList.h"
#include "support/FailureOf.h"
#include "support/FakePlatform.h"
#include "support/Pixels.h"
#include "support/RecordingSurface.h"

namespace quillshift {
namespace {

using Type = clsImageList::ImageType;
constexpr IconMode kModes[] = {IconMode::Source, IconMode::Disabled, IconMode::Plain, IconMode::Highlighted};

/// A list of one-pixel icons, so that a look is one pixel, and a bar that paints from it.
class IconLists : public testing::Test {
protected:
    IconLists() {
        list.IconSizeX = list.IconSizeY = 1;
        list.Create();
        bar.SetDisabledColor(Rgb(200, 100, 50));
        bar.SetHighlightColor(Rgb(10, 20, 250));
    }
    void Add(Pixel pixel, std::string_view key = {}) {
        files.files[u"icon"] = IconFile({SolidImage(1, pixel)});
        list.AddFromFile(u"icon", Type::Icon, key);
    }
    void Heading(const std::string& text) { surface.Note("- " + text); }

    FakeFiles files;
    FakeSystemColours desktop;
    clsImageList list{files, desktop};
    cCommandBarImageList bar;
    RecordingSurface surface;
};

// Dark, coloured, white, the two greys of shadows and a neighbour of theirs, a soft edge, and nothing.
TEST_F(IconLists, LooksAsStored) {
    for (const Pixel& pixel :
         {Pixel{0, 0, 0, 255}, Pixel{50, 100, 200, 255}, Pixel{255, 255, 255, 255}, Pixel{227, 227, 227, 255},
          Pixel{221, 221, 221, 255}, Pixel{227, 227, 221, 255}, Pixel{0, 0, 0, 128},
          Pixel{227, 227, 227, 128}, Pixel{255, 255, 255, 0}})
        Add(pixel);
    bar.InitialiseFromVariant(list.hIml());
    for (int icon = 0; icon < list.ImageCount(); ++icon) {
        Heading("icon " + std::to_string(icon) + ": source, disabled, plain, highlighted");
        for (const IconMode mode : kModes)
            bar.Draw(surface, icon, mode, 5, 6);
    }
    Heading("in other colours");
    bar.SetDisabledColor(Rgb(1, 2, 3));
    bar.SetHighlightColor(Rgb(4, 5, 6));
    bar.Draw(surface, 0, IconMode::Disabled, 0, 0);
    bar.Draw(surface, 3, IconMode::Highlighted, 0, 0);
    EXPECT_EQ(bar.count(), 27) << "no look was made twice";
    Heading("white with grey, then with a colour that nobody sees: disabled");
    for (const int alpha : {0, 1}) {
        list.IconSizeX = 3;
        list.Create();
        list.AddFromHandle(BitmapOf<cAlphaDIBSection>(
            3, {{255, 255, 255, 255}, {221, 221, 221, 255}, {254, 255, 255, alpha}}));
        bar.InitialiseFromVariant(list.hIml());
        bar.Draw(surface, 0, IconMode::Disabled, 0, 0);
    }
    ExpectAsStored("commandbar/drawn/IconLooks.txt", surface.drawn);
}

TEST_F(IconLists, DrawingsAsStored) {
    const auto strip = BitmapOf<cAlphaDIBSection>(2, {{1, 1, 1, 255}, {3, 3, 3, 255}});
    list.AddFromHandle(strip, Type::Bitmap);
    clsImageList other(files, desktop);
    other.IconSizeX = other.IconSizeY = 1;
    other.Create();
    other.AddFromHandle(strip); // scaled
    desktop.colours[SystemColour::Window] = Rgb(5, 7, 9);
    Heading("the second of a strip: as it is, selected in a colour, cut in that of windows");
    list.DrawImage(2, surface, {0, 0});
    list.DrawImage(2, surface, {0, 0}, {.selected = true, .colour = Rgb(255, 101, 3)});
    list.DrawImage(2, surface, {0, 0}, {.cut = true});
    Heading("the first of another list, and nothing where that has no second");
    list.DrawImage(1, surface, {0, 0}, {.otherList = other.hIml()});
    list.DrawImage(2, surface, {0, 0}, {.otherList = other.hIml()});
    Heading("nothing of a list that is gone");
    other.Destroy();
    list.DrawImage(1, surface, {0, 0}, {.otherList = other.hIml()});
    ExpectAsStored("commandbar/drawn/IconDrawings.txt", surface.drawn);
}

TEST_F(IconLists, GreysAsStored) {
    desktop.colours[SystemColour::Light3D] = Rgb(3, 2, 1);
    for (const auto greys : {clsImageList::Greys::AsTheyAre, clsImageList::Greys::TheDesktops}) {
        Heading("greys 128, 192, 223, 200");
        for (const int level : {128, 192, 223, 200}) {
            files.files[u"icon"] = IconFile({SolidImage(1, {level, level, level, 255})});
            list.AddFromFile(u"icon", Type::Icon, {}, greys);
            list.DrawImage(list.ImageCount(), surface, {0, 0});
        }
    }
    ExpectAsStored("commandbar/drawn/IconGreys.txt", surface.drawn);
}

TEST_F(IconLists, SizesAsStored) {
    files.files[u"icon"] = IconFile({SolidImage(4, {1, 1, 1, 255}), SolidImage(8, {2, 2, 2, 255})});
    for (const int density : {1, 2}) {
        list.IconSizeX = list.IconSizeY = 4;
        surface.density = density;
        list.OwnerHDC = &surface;
        list.Create();
        list.AddFromFile(u"icon");
        bar.InitialiseFromVariant(list.hIml());
        Heading("4 by 4 in density " + std::to_string(density) + ": whole, too large, cut, none");
        for (const IconMode mode : {IconMode::Source, IconMode::Plain})
            for (const auto& [width, height] : {std::pair{-1, -1}, {99, 3}, {2, 99}, {0, 3}})
                bar.Draw(surface, 0, mode, 3, 4, width, height);
    }
    ExpectAsStored("commandbar/drawn/IconSizes.txt", surface.drawn);
}

TEST_F(IconLists, StripAsStored) {
    for (int i = 0; i < 12; ++i)
        Add({i, i, i, 255});
    bar.InitialiseFromVariant(list.hIml());
    Heading("as the strip grows, and the strip");
    for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0, 9, 11})
        bar.Draw(surface, i, IconMode::Plain, 0, 0);
    bar.DrawStrip(surface, 2, 0);
    EXPECT_EQ(bar.count(), 12);
    EXPECT_EQ(bar.IndexOf(11, IconMode::Plain), 12);
    EXPECT_EQ(bar.IndexOf(11, IconMode::Disabled), 0);
    EXPECT_EQ(bar.IconIndexOf(12), 11);
    EXPECT_EQ(bar.IconIndexOf(13), -1);
    ExpectAsStored("commandbar/drawn/IconStrip.txt", surface.drawn);
}

TEST_F(IconLists, KeepNumbersRightWhenAFileIsMissing) {
    Add({1, 1, 1, 255}, "A");
    list.AddFromFile(u"missing", Type::Icon, "B");
    Add({3, 3, 3, 255}, "C");
    list.RemoveImage("A");
    EXPECT_EQ(list.ItemKey(1), "B");
    list.SetItemKey(1, "D");
    EXPECT_TRUE(list.KeyExists("D") && !list.KeyExists("B"));
    EXPECT_EQ(list.ItemIndex("C"), 2);
    list.DrawImage("D", surface, {0, 0});
    list.DrawImage("C", surface, {0, 0});
    EXPECT_EQ(surface.drawn, (std::vector<std::string>{"composite 0,0-1,1 of 0,0-1,1 0/0/0/0",
                                                       "composite 0,0-1,1 of 0,0-1,1 3/3/3/255"}));
    for (const ImageReference& wrong : {ImageReference(0), ImageReference(3), ImageReference("A")})
        EXPECT_EQ(FailureOf([&] { list.ItemIndex(wrong); }).Number(), 9);
    EXPECT_EQ(list.SystemColourDepth(), 24);
}

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
    const std::tuple<std::string, Pixel, Pixel> cases[] = {
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
    for (const auto& row : cases) {
        const auto& [image, first, second] = row;
        const auto icon = ReadIcon(IconFile({image}), {2, 1});
        EXPECT_EQ(Corner(icon), first) << &row - cases;
        EXPECT_EQ(icon ? PixelOf(icon->hDib(), 1, 0) : Pixel{}, second) << &row - cases;
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
