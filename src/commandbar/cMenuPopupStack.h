#pragma once

#include "platform/WindowId.h"

#include <vector>

namespace quillshift {

/// One open popup.
struct cMenuPopupStack {
    WindowId hwnd = 0;
    WindowId hWndSource = 0;   ///< the control that opened it
    bool ShownAsPopup = false; ///< opened free rather than from an item
    int RecursionLevel = 0;    ///< 0 for a normal menu and its sub-menus
};

/// The open popups of a menu, in levels: a popup opened free on another one starts a new level, a sub-menu
/// stays on its parent's. Only the newest level reacts: the popups below it are disabled, with the controls
/// that opened them.
class PopupStack {
public:
    /// The windows to enable and to disable after a change, for the caller to see to.
    struct Change {
        std::vector<WindowId> enable;
        std::vector<WindowId> disable;

        bool operator==(const Change&) const = default;
    };
    Change Push(WindowId popup, WindowId source, bool shownAsPopup);
    Change Pop(WindowId popup);

    /// Level of the newest popup; 0 if there is none.
    int PopupLevel() const { return entries_.empty() ? 0 : entries_.back().RecursionLevel; }
    /// The open popups, oldest first.
    const std::vector<cMenuPopupStack>& Entries() const { return entries_; }
    /// Whether a popup was opened free, or hangs below one that was.
    bool HangsFree(WindowId popup) const;
    /// The entry of a popup; null if it isn't open. Valid until the next change.
    const cMenuPopupStack* Find(WindowId popup) const;

private:
    Change Rebalance();

    std::vector<cMenuPopupStack> entries_;
    std::vector<WindowId> disabled_;
};

} // namespace quillshift
