#include "commandbar/Walking.h"

namespace quillshift {
namespace {

using Test = std::function<bool(const ButtonRecord&)>;

ItemIndex Walk(BarButtons buttons, std::span<const cDisplayButtonInfo> items, ItemIndex from, Step step,
               const Test& stopsAt) {
    const std::size_t count = items.size();
    const bool forward = step == Step::Next;
    std::size_t i = from.value_or(forward ? count - 1 : 0);
    for (std::size_t walked = 0; walked < count; ++walked) {
        i = (i + (forward ? 1 : count - 1)) % count;
        if (IsPlaced(items[i]) && stopsAt(*buttons[i]))
            return i;
    }
    return std::nullopt;
}

} // namespace

ItemIndex WalkRows(BarButtons buttons, std::span<const cDisplayButtonInfo> items, ItemIndex from, Step step) {
    return Walk(buttons, items, from, step,
                [](const ButtonRecord& button) { return button.Style != ButtonStyle::Separator; });
}

ItemIndex WalkStrip(BarButtons buttons, std::span<const cDisplayButtonInfo> items, ItemIndex from,
                    Step step) {
    return Walk(buttons, items, from, step, [](const ButtonRecord& button) {
        return button.Style == ButtonStyle::Panel ||
               (button.Enabled && button.Style != ButtonStyle::Separator);
    });
}

ItemIndex EndRow(BarButtons buttons, std::span<const cDisplayButtonInfo> items, DisplayMode mode, Step step) {
    return Walk(buttons, items, std::nullopt, step,
                [mode](const ButtonRecord& button) { return button.IsSelectable(mode, Orientation::Top); });
}

ItemIndex MnemonicItem(BarButtons buttons, std::span<const cDisplayButtonInfo> items, int key) {
    return Walk(buttons, items, std::nullopt, Step::Next,
                [key](const ButtonRecord& button) { return button.HasMnemonic(key); });
}

} // namespace quillshift
