#include "commandbar/cMenuPopupStack.h"

#include <algorithm>

namespace quillshift {
namespace {

bool Has(const std::vector<WindowId>& windows, WindowId window) {
    return std::find(windows.begin(), windows.end(), window) != windows.end();
}

std::vector<WindowId> Without(const std::vector<WindowId>& windows, const std::vector<WindowId>& others) {
    std::vector<WindowId> rest;
    std::copy_if(windows.begin(), windows.end(), std::back_inserter(rest),
                 [&](WindowId window) { return !Has(others, window); });
    return rest;
}

} // namespace

PopupStack::Change PopupStack::Push(WindowId popup, WindowId source, bool shownAsPopup) {
    const bool newLevel = shownAsPopup && Find(source) != nullptr;
    entries_.push_back({popup, source, shownAsPopup, PopupLevel() + (newLevel ? 1 : 0)});
    return Rebalance();
}

PopupStack::Change PopupStack::Pop(WindowId popup) {
    std::erase_if(entries_, [popup](const cMenuPopupStack& entry) { return entry.hwnd == popup; });
    return Rebalance();
}

const cMenuPopupStack* PopupStack::Find(WindowId popup) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [popup](const cMenuPopupStack& entry) { return entry.hwnd == popup; });
    return found == entries_.end() ? nullptr : &*found;
}

// Reckoned from what is open rather than from the step just taken: whatever the order in which popups close,
// nothing stays disabled behind them.
PopupStack::Change PopupStack::Rebalance() {
    std::vector<WindowId> below;
    for (const cMenuPopupStack& entry : entries_)
        if (entry.RecursionLevel < PopupLevel())
            for (const WindowId window : {entry.hwnd, entry.hWndSource})
                if (!Has(below, window))
                    below.push_back(window);
    Change change{.enable = Without(disabled_, below), .disable = Without(below, disabled_)};
    disabled_ = std::move(below);
    return change;
}

bool PopupStack::HangsFree(WindowId popup) const {
    const cMenuPopupStack* entry = Find(popup);
    while (entry != nullptr && !entry->ShownAsPopup)
        entry = Find(entry->hWndSource);
    return entry != nullptr;
}

} // namespace quillshift
