// What the keys do in a control while a menu has the keyboard.

#include "commandbar/Walking.h"
#include "commandbar/qsCommandBar.h"
#include "platform/Keys.h"

namespace quillshift {
namespace {

// On an upright bar the keys along it are Up and Down.
int AlongTheBar(int virtualKey, Orientation orientation) {
    if (!IsUpright(orientation))
        return virtualKey;
    switch (virtualKey) {
    case key::kUp:
        return key::kLeft;
    case key::kDown:
        return key::kRight;
    case key::kLeft:
    case key::kRight:
        return key::kDown;
    default:
        return virtualKey;
    }
}

} // namespace

void qsCommandBar::OnMenuKey(int virtualKey) {
    if (isPopup_)
        OnPopupKey(virtualKey);
    else
        OnStripKey(AlongTheBar(virtualKey, orientation_));
}

void qsCommandBar::OnPopupKey(int virtualKey) {
    const ItemIndex current = CurrentItem(items_);
    switch (virtualKey) {
    case key::kEnter:
        if (current)
            OpenOrClick(*current);
        break;
    case key::kEscape:
        bars_.Tracking().LeavePopup(Window());
        break;
    case key::kEnd:
        MakeHot(EndRow(records_, items_, Mode(), Step::Previous));
        break;
    case key::kHome:
        MakeHot(EndRow(records_, items_, Mode(), Step::Next));
        break;
    case key::kUp:
        MakeHot(WalkRows(records_, items_, current, Step::Previous));
        break;
    case key::kDown:
        MakeHot(WalkRows(records_, items_, current, Step::Next));
        break;
    case key::kLeft:
        LeaveToStrip(Step::Previous);
        break;
    case key::kRight:
        if (current && buttons_[*current]->Bar != nullptr && IsSelectable(*current))
            OpenItem(*current, false);
        else
            LeaveToStrip(Step::Next);
        break;
    default:
        OnMnemonic(virtualKey);
    }
}

void qsCommandBar::OnStripKey(int virtualKey) {
    const ItemIndex current = CurrentItem(items_);
    switch (virtualKey) {
    case key::kEscape:
        bars_.Tracking().SetMenuMode(false);
        break;
    case key::kLeft:
        MakeHot(WalkStrip(records_, items_, current, Step::Previous));
        break;
    case key::kRight:
        MakeHot(WalkStrip(records_, items_, current, Step::Next));
        break;
    case key::kUp:
    case key::kDown:
        if (current && buttons_[*current]->Bar != nullptr)
            OpenItem(*current, true);
        break;
    case key::kEnter:
        if (current)
            OpenOrClick(*current);
        break;
    default:
        OnMnemonic(virtualKey);
    }
}

// A row that can't be chosen only ends the menu.
void qsCommandBar::OpenOrClick(std::size_t index) {
    if (!IsSelectable(index))
        bars_.Tracking().SetMenuMode(false);
    else if (buttons_[index]->Bar != nullptr)
        OpenItem(index, true);
    else
        Click(index);
}

void qsCommandBar::OnMnemonic(int virtualKey) {
    if (const ItemIndex found = MnemonicItem(records_, items_, virtualKey))
        OpenOrClick(*found);
}

// Left goes back to the popup below, and from the first one to the strip's neighbouring item. Right, on a row
// without a menu, goes on from the strip where the menu began.
void qsCommandBar::LeaveToStrip(Step step) {
    if (step == Step::Next)
        while (bars_.Menu().PopupLevel() > 0)
            bars_.Tracking().SetMenuMode(false);
    qsCommandBar* const control = bars_.Find(step == Step::Previous ? parent_ : bars_.Menu().MenuSource);
    if (control != nullptr && !control->IsPopup())
        control->WalkAndOpen(step);
    else
        bars_.Tracking().LeavePopup(Window());
}

void qsCommandBar::WalkAndOpen(Step step) {
    const ItemIndex next = WalkStrip(records_, items_, CurrentItem(items_), step);
    MakeHot(next);
    bars_.Tracking().CloseMenusOf(Window());
    if (next && buttons_[*next]->Bar != nullptr)
        OpenItem(*next, false);
}

void qsCommandBar::MakeHot(ItemIndex index) {
    tmrLostMouse_->Stop();
    for (const std::size_t changed : TrackTo(items_, index).changed)
        RepaintItem(changed);
    AnnounceHot(index);
}

void qsCommandBar::MakeFirstItemHot() {
    MakeHot(WalkStrip(records_, items_, std::nullopt, Step::Next));
}

} // namespace quillshift
