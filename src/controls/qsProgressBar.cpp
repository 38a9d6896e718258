#include "controls/qsProgressBar.h"

#include "controls/bitmaps/pcDibSection.h"

#include <algorithm>
#include <cmath>

namespace quillshift {
namespace {

constexpr ProgressSizes kPlainSegments{.chunk = 8, .space = 2};

void Modify(BitmapPicture& picture, double hue, double luminance, double saturation) {
    pcDibSection bitmap;
    if (picture.bits.empty() || !bitmap.CreateFromPicture(picture))
        return;
    bitmap.ModifyHLS(hue, luminance, saturation);
    std::copy_n(bitmap.DIBSectionBitsPtr(), picture.bits.size(), picture.bits.begin());
}

// The tiles line up with the control's origin, wherever the area begins.
void Tile(Surface& surface, const Rect& area, const PixelView& picture) {
    for (int y = area.top, height = 0; y < area.bottom; y += height) {
        height = std::min(picture.height - y % picture.height, area.bottom - y);
        for (int x = area.left, width = 0; x < area.right; x += width) {
            width = std::min(picture.width - x % picture.width, area.right - x);
            surface.Composite(RectAt(x, y, width, height), picture,
                              RectAt(x % picture.width, y % picture.height, width, height));
        }
    }
}

void Ground(Surface& surface, const Rect& area, const BitmapPicture& picture, PictureMode mode,
            Colour otherwise) {
    if (picture.bits.empty())
        surface.FillRect(area, otherwise);
    else if (mode == PictureMode::Tile)
        Tile(surface, area, picture.View());
    else
        surface.Composite(area, picture.View(), RectAt(0, 0, picture.width, picture.height));
}

// The lines at the left and the top in one colour, those at the right and the bottom in another.
void Edge(Surface& surface, const Rect& area, Colour nearEdge, Colour farEdge) {
    surface.FillRect(RectAt(area.left, area.top, area.Width(), 1), nearEdge);
    surface.FillRect(RectAt(area.left, area.top, 1, area.Height()), nearEdge);
    surface.FillRect(RectAt(area.left, area.bottom - 1, area.Width(), 1), farEdge);
    surface.FillRect(RectAt(area.right - 1, area.top, 1, area.Height()), farEdge);
}

} // namespace

// One painting, of which the steps share where things are.
struct qsProgressBar::Painting {
    const qsProgressBar& bar;
    Surface& surface;
    const SystemColours& colours;
    const ThemeService& theme;
    Rect client;
    Rect inner;
    bool upright;

    Colour Of(const BarColour& colour) const {
        const auto* const own = std::get_if<Colour>(&colour);
        return own != nullptr ? *own : colours.Of(std::get<SystemColour>(colour));
    }
    int Length() const { return upright ? inner.Height() : inner.Width(); }
    // The length of `inner` from `begin` on, counted from where the bar starts.
    Rect Stretch(int begin, int length) const {
        return upright ? Rect{inner.left, inner.bottom - begin - length, inner.right, inner.bottom - begin}
                       : Rect{inner.left + begin, inner.top, inner.left + begin + length, inner.bottom};
    }
    // How long the bar is: whole segments, where there are any.
    int Filled(const std::optional<ProgressSizes>& segments) const {
        const int length = static_cast<int>(std::lround(Length() * bar.Percent() / 100));
        return segments ? length - length % (segments->chunk + segments->space) : length;
    }
    template <class Draw>
    void EachSegment(const std::optional<ProgressSizes>& segments, Draw draw) const {
        const int filled = Filled(segments);
        const int chunk = segments && segments->space > 0 ? segments->chunk : filled;
        const int step = segments && segments->space > 0 ? chunk + segments->space : filled;
        for (int begin = 0; begin < filled; begin += step)
            draw(Stretch(begin, std::min(chunk, filled - begin)));
    }

    bool Themed();
    void Plain();
    Rect TextArea(std::u16string_view text) const;
    void Text(int filled);
    void Border();
};

double qsProgressBar::Percent() const {
    const double range = static_cast<double>(Max) - Min;
    return range == 0 ? 0 : std::clamp((static_cast<double>(Value) - Min) / range, 0.0, 1.0) * 100;
}

void qsProgressBar::ModifyBarPicture(double hue, double luminance, double saturation) {
    Modify(BarPicture, hue, luminance, saturation);
}

void qsProgressBar::ModifyPicture(double hue, double luminance, double saturation) {
    Modify(Picture, hue, luminance, saturation);
}

void qsProgressBar::Paint(Surface& surface, Size client, const SystemColours& colours,
                          const ThemeService& theme) const {
    const Rect all = RectAt(0, 0, client.width, client.height);
    const int border = BorderStyle <= 0 ? 0 : Appearance == BorderLook::Edge ? 2 : 1;
    Painting painting{
        *this, surface, colours, theme, all, XpStyle ? all : all.Inset(border), client.height > client.width};
    if (XpStyle && painting.Themed())
        return;
    painting.inner = all.Inset(border);
    painting.Plain();
}

// False, and nothing counts, where the theme fails at any of it.
bool qsProgressBar::Painting::Themed() {
    const auto sizes = theme.ProgressBarSizes();
    if (!sizes || !theme.DrawProgressPart(surface, upright ? 2 : 1, client))
        return false;
    bool drawn = true;
    EachSegment(sizes, [&](const Rect& segment) {
        drawn = drawn && theme.DrawProgressPart(surface, upright ? 4 : 3, segment);
    });
    if (!drawn || !bar.ShowText)
        return drawn;
    const std::u16string text = u' ' + bar.Text + u' ';
    return theme.DrawProgressText(surface, TextArea(text), text, bar.Font);
}

void qsProgressBar::Painting::Plain() {
    Ground(surface, client, bar.Picture, bar.BackPictureMode, Of(bar.BackColor));
    const auto segments = bar.Segments ? std::optional(kPlainSegments) : std::nullopt;
    EachSegment(segments, [&](const Rect& segment) {
        Ground(surface, segment, bar.BarPicture, bar.BarPictureMode, Of(bar.BarColor));
    });
    if (bar.ShowText)
        Text(Filled(segments));
    if (bar.BorderStyle > 0)
        Border();
}

// Where one line of text stands: as wide and high as it is.
Rect qsProgressBar::Painting::TextArea(std::u16string_view text) const {
    const Size size = surface.TextExtent(text, bar.Font, false);
    const auto from = [](TextAlign align, int begin, int room, int length) {
        return begin + (room - length) * static_cast<int>(align) / 2;
    };
    return RectAt(from(bar.TextAlignX, inner.left, inner.Width(), size.width),
                  from(bar.TextAlignY, inner.top, inner.Height(), size.height), size.width, size.height);
}

void qsProgressBar::Painting::Text(int filled) {
    const std::u16string text = u' ' + bar.Text + u' ';
    const Rect area = TextArea(text);
    const auto draw = [&](const Rect& clip, const BarColour& colour) {
        if (clip.IsEmpty())
            return;
        surface.SetClip(clip);
        surface.DrawText(area, text, bar.Font, Of(colour),
                         {.align = TextLayout::Align::Left, .rotated = false, .mnemonics = false});
        surface.ClearClip();
    };
    draw(Stretch(0, filled), bar.BarForeColor);
    draw(Stretch(filled, Length() - filled), bar.ForeColor);
}

void qsProgressBar::Painting::Border() {
    if (bar.Appearance == BorderLook::Line) {
        surface.FrameRect(client, Rgb(0, 0, 0));
        return;
    }
    Edge(surface, client, colours.Of(SystemColour::ButtonShadow), colours.Of(SystemColour::Highlight3D));
    if (bar.Appearance == BorderLook::Edge)
        Edge(surface, client.Inset(1), colours.Of(SystemColour::DarkShadow3D),
             colours.Of(SystemColour::Light3D));
}

} // namespace quillshift
