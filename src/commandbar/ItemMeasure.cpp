#include "commandbar/ItemMeasure.h"

#include "commandbar/PanelControl.h"

#include <algorithm>

namespace quillshift {
namespace {

int LineHeight(const cMeasureButtonParams& params, const TextMeasurer& measurer) {
    return measurer.TextExtent(u"Xy", params.Font).height;
}

int TextWidth(std::u16string_view text, const cMeasureButtonParams& params, const TextMeasurer& measurer) {
    return text.empty() ? 0 : measurer.TextExtent(text, params.Font).width;
}

Size MeasureRow(const ButtonRecord& button, const cMeasureButtonParams& params,
                const TextMeasurer& measurer) {
    if (button.Style == ButtonStyle::Separator)
        return {10, 3};
    int width = params.IconHeight + 10;
    if (!button.Caption.empty()) {
        const std::u16string text = button.Caption + u"  " + button.ShortcutText();
        width = (button.HasPicture() ? params.IconHeight : 0) + TextWidth(text, params, measurer) +
                button.MenuGap + 32;
    }
    if (params.Mode == DisplayMode::AddOrRemoveList)
        width += params.IconWidth + 2;
    return {width, std::max(LineHeight(params, measurer), params.IconHeight) + 2 * button.ItemMargin};
}

Size MeasureToolbarItem(const ButtonRecord& button, const cMeasureButtonParams& params,
                        const TextMeasurer& measurer) {
    const bool upright = IsUpright(params.Orientation);
    const bool panel = button.Style == ButtonStyle::Panel;
    int base = 2 * button.ItemMargin;
    if (button.Style == ButtonStyle::Separator)
        return {base, base};
    if (button.HasPicture())
        base += upright ? params.IconWidth : params.IconHeight;
    // A panel's width is room along the bar; it makes the bar no deeper.
    int along = base;
    if (panel && button.Panel != nullptr && !upright)
        along += std::max(button.PanelWidth, button.Panel->LeastWidth());

    const int line = LineHeight(params, measurer);
    const bool below =
        params.ButtonTextPosition == TextPosition::BelowIcon && button.ShowCaptionInToolbar && !panel;
    int across =
        below && !button.Caption.empty() ? line + base + 4 : std::max(base, line + 2 * button.ItemMargin);
    if (button.ShowCaptionInToolbar) {
        const int caption = TextWidth(button.Caption, params, measurer);
        along = below ? std::max(along, caption + 12) : caption + along + 4;
    }

    if (button.Style == ButtonStyle::Split)
        (upright ? across : along) += button.SplitWidth;
    else if (!upright && button.Bar != nullptr && button.ShowDropDownInToolbar)
        along += button.SplitWidth - 4;
    return upright ? Size{across, along} : Size{along, across};
}

} // namespace

Size MeasureItem(const ButtonRecord& button, const cMeasureButtonParams& params,
                 const TextMeasurer& measurer) {
    return IsMenu(params.Mode) ? MeasureRow(button, params, measurer)
                               : MeasureToolbarItem(button, params, measurer);
}

} // namespace quillshift
