#pragma once

#include "commandbar/HitTest.h"

namespace quillshift {

enum class Step { Previous, Next };

/// The row of a popup that the Up and Down keys reach from another, wrapping; from nowhere the last or the
/// first. Disabled rows are reached too.
ItemIndex WalkRows(BarButtons buttons, std::span<const cDisplayButtonInfo> items, ItemIndex from, Step step);

/// The item of a main menu or toolbar that the arrow keys reach from another, wrapping.
ItemIndex WalkStrip(BarButtons buttons, std::span<const cDisplayButtonInfo> items, ItemIndex from, Step step);

/// The first selectable row of a popup for `Step::Next`, the last for `Step::Previous`.
ItemIndex EndRow(BarButtons buttons, std::span<const cDisplayButtonInfo> items, DisplayMode mode, Step step);

/// The first shown item whose mnemonic is typed with a key.
ItemIndex MnemonicItem(BarButtons buttons, std::span<const cDisplayButtonInfo> items, int key);

} // namespace quillshift
