#pragma once

#include "commandbar/HitTest.h"
#include "commandbar/cDrawButtonParams.h"
#include "commandbar/icons/BarIcons.h"
#include "commandbar/mCommandBarUtility.h"

namespace quillshift {

/// The part of a popup's border that touches the item it was opened from and stays open, along the edge that
/// faces the item; in the popup's client pixels. A gap outside the client area is none.
struct PopupGap {
    PopupDirection direction = PopupDirection::Below;
    int position = 0;
    int size = 0;
};

/// A bar to be painted. Lengths in client pixels; nothing is owned.
struct BarView {
    WindowId window = 0;
    DisplayMode mode = DisplayMode::Toolbar;
    quillshift::Orientation orientation = quillshift::Orientation::Top;
    TextPosition textPosition = TextPosition::BesideIcon;
    bool rightToLeft = false;
    bool keyboardMode = false; ///< the menu is being driven by keys
    Size client;
    Rect parentClient;    ///< client area of the parent window, over which the bars' shared background runs
    PixelView background; ///< picture tiled behind a bar that is no popup; empty for none
    PopupGap gap;
    FontSpec font;
    BarIcons* icons = nullptr;
    BarButtons buttons;
    std::span<const cDisplayButtonInfo> items; ///< as laid out, one for each button
};

/// What the painting of one item of a bar depends on.
cDrawButtonParams DrawParamsOf(const BarView& bar, std::size_t index);

/// Paints bars. Surfaces start at the client's origin and are left without a clip.
class BarPainter {
public:
    /// The colours have to outlive the painter.
    explicit BarPainter(const mCommandBarColours& colours) : colours_(colours) {}

    void PaintBar(Surface& surface, const BarView& bar) const;
    /// Paints one item and the bar's background beneath it.
    void PaintItem(Surface& surface, const BarView& bar, std::size_t index) const;

private:
    void PaintGround(Surface& surface, const BarView& bar, const Rect& part) const;
    void PaintBarBackground(Surface& surface, const BarView& bar, const Rect& part) const;
    void PaintSharedBackground(Surface& surface, const BarView& bar) const;
    void PaintPopupFrame(Surface& surface, const BarView& bar) const;
    void PaintPopupGap(BarBrush& brush, const BarView& bar) const;
    void PaintContent(Surface& surface, const BarView& bar, std::size_t index) const;

    const mCommandBarColours& colours_;
};

} // namespace quillshift
