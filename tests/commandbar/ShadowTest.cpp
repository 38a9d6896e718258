#include "commandbar/cMenuDropShadow.h"

#include <gmock/gmock.h>

namespace quillshift {
namespace {

using testing::ElementsAre;

constexpr Rect kPopup{100, 50, 130, 70};

// Blue, green, red and alpha of a pixel, counted from the top left.
std::vector<int> PixelAt(const PixelView& view, int x, int y) {
    const std::ptrdiff_t at = std::ptrdiff_t{view.height - 1 - y} * view.width + x;
    const std::uint8_t* pixel = view.bits + 4 * at;
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

TEST(cMenuDropShadowTest, StoresItsColourTimesAlphaOrBlendedOverTheScreen) {
    cMenuDropShadow shadow(ShadowEdge::Right);
    shadow.ShadowColor = Rgb(100, 0, 192);
    shadow.Create(kPopup);
    EXPECT_THAT(PixelAt(shadow.Pixels(), 1, 0), ElementsAre(153, 0, 80, 204));

    std::vector<std::uint8_t> white(std::size_t{5} * 20 * 4, 255);
    white[0] = 55; // the bottom left pixel's blue
    ASSERT_TRUE(shadow.CreateOver(kPopup, {white.data(), 5, 20}));
    EXPECT_THAT(PixelAt(shadow.Pixels(), 0, 0), ElementsAre(192, 0, 100, 255));
    EXPECT_THAT(PixelAt(shadow.Pixels(), 4, 0), ElementsAre(204 + 38, 204, 204 + 20, 255));
    EXPECT_THAT(PixelAt(shadow.Pixels(), 0, 19), ElementsAre(44 + 38, 204, 204 + 20, 255));

    EXPECT_FALSE(shadow.CreateOver(kPopup, {white.data(), 4, 20}));
    EXPECT_TRUE(shadow.Target().IsEmpty()) << "no strip without a copy of the screen";
}

} // namespace
} // namespace quillshift
