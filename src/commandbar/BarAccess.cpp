// What a control tells those who do not see it, and does for those who do not point.

#include "commandbar/qsCommandBar.h"

#include <algorithm>

namespace quillshift {
namespace {

// Of two marks the first shows the second one.
std::u16string WithoutMnemonic(std::u16string_view caption) {
    std::u16string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size())
            break;
        plain += caption[i];
    }
    return plain;
}

bool IsTold(const cButtonInt& button) {
    return button.Visible && button.Style != ButtonStyle::Separator && button.Style != ButtonStyle::Panel;
}

} // namespace

BarRole qsCommandBar::Role() const {
    if (isPopup_)
        return BarRole::Menu;
    return mainMenu_ ? BarRole::MenuBar : BarRole::ToolBar;
}

// A menu is called as the item is that opens it elsewhere.
std::u16string qsCommandBar::Title() const {
    const cCommandBarInt* const shown = ShownBar();
    if (shown == nullptr)
        return {};
    for (const auto& [key, button] : bars_.Model().Buttons())
        if (button->Bar == shown)
            return WithoutMnemonic(button->Caption);
    return shown->Title;
}

/// The item of the control below that has opened this popup.
ItemIndex qsCommandBar::OpenerItem() const {
    const qsCommandBar* const opener = isPopup_ ? bars_.Find(parent_) : nullptr;
    if (opener == nullptr)
        return std::nullopt;
    const auto found = std::ranges::find(opener->items_, Window(), &cDisplayButtonInfo::MenuWindow);
    if (found == opener->items_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - opener->items_.begin());
}

// The items that a toolbar has no room for stay where they belong among its own; the button that offers them
// to the eye is none of them.
std::vector<BarItem> qsCommandBar::ItemsBelow(const BarPath& path) {
    if (bars_.BeforeShortcut)
        bars_.BeforeShortcut(); // what may be chosen is found out only when it matters
    const cButtonInt* const opener = path.empty() ? nullptr : ButtonAt(path);
    const cCommandBarInt* const bar = path.empty() ? ShownBar() : opener != nullptr ? opener->Bar : nullptr;
    std::vector<BarItem> told;
    if (bar == nullptr)
        return told;
    const qsCommandBar* const shows = ControlThatShows(path);
    for (const auto& [key, button] : bar->Buttons)
        if (IsTold(*button))
            told.push_back(shows != nullptr ? shows->Placed(*button) : Described(*button));
    return told;
}

/// The control that shows the bar at the end of the path at present, or null.
const qsCommandBar* qsCommandBar::ControlThatShows(const BarPath& path) const {
    const qsCommandBar* control = this;
    for (const std::string& key : path) {
        const auto found = std::ranges::find(control->buttons_, key, &cButtonInt::Key);
        if (found == control->buttons_.end())
            return nullptr;
        const auto& item = control->items_[static_cast<std::size_t>(found - control->buttons_.begin())];
        control = item.ShowingMenu ? bars_.Find(item.MenuWindow) : nullptr;
        if (control == nullptr)
            return nullptr;
    }
    return control;
}

cButtonInt* qsCommandBar::ButtonAt(const BarPath& path) const {
    const cCommandBarInt* bar = ShownBar();
    cButtonInt* found = nullptr;
    for (const std::string& step : path) {
        found = nullptr;
        if (bar == nullptr)
            return nullptr;
        for (const auto& [key, button] : bar->Buttons)
            if (button->Key == step && IsTold(*button))
                found = button;
        if (found == nullptr)
            return nullptr;
        bar = found->Bar;
    }
    return found;
}

BarItem qsCommandBar::Described(const cButtonInt& button) {
    BarItem item{.key = button.Key,
                 .name = WithoutMnemonic(button.Caption),
                 .description = button.ToolTip,
                 .shortcut = button.ShortcutText(),
                 .place = {},
                 .enabled = button.Enabled && !button.Locked,
                 .checkable = button.IsCheckable(),
                 .checked = button.IsCheckable() && button.Checked,
                 .opensMenu = button.Bar != nullptr};
    if (item.name.empty())
        item.name = button.ToolTip.empty() ? button.Tag : button.ToolTip; // tips may be switched off
    if (item.description == item.name)
        item.description.clear();
    return item;
}

/// Described with what this control makes of it.
BarItem qsCommandBar::Placed(const cButtonInt& button) const {
    BarItem item = Described(button);
    const auto found = std::ranges::find(buttons_, &button);
    if (found == buttons_.end())
        return item;
    const cDisplayButtonInfo& shown = items_[static_cast<std::size_t>(found - buttons_.begin())];
    item.hot = shown.MouseOver;
    item.menuOpen = shown.ShowingMenu;
    if (!shown.Hidden) {
        const Point origin = window_.ToScreen({0, 0});
        item.place = AreaOf(shown).MovedBy(origin.x, origin.y);
    }
    return item;
}

// Told by the control that is in the tree: a menu of an item is part of the bar where it began.
void qsCommandBar::AnnounceHot(ItemIndex index) const {
    BarPath path;
    const qsCommandBar* control = this;
    if (index && buttons_[*index] != &more_)
        path.push_back(buttons_[*index]->Key);
    for (ItemIndex opener = OpenerItem(); opener; opener = control->OpenerItem()) {
        control = bars_.Find(control->parent_);
        path.insert(path.begin(), control->buttons_[*opener]->Key);
    }
    if (bars_.IsNewlyHot(control->Window(), path))
        control->window_.AnnounceItem(path);
}

// --- Pressing

// A command runs as by its shortcut, so that no menu has to be open for it.
void qsCommandBar::PressItem(const BarPath& path) {
    if (bars_.BeforeShortcut)
        bars_.BeforeShortcut();
    cButtonInt* const button = path.empty() ? nullptr : ButtonAt(path);
    if (button == nullptr || !button->Enabled || button->Locked)
        return;
    if (button->Bar != nullptr) {
        OpenMenusAlong(path);
        return;
    }
    if (bars_.Menu().MenuMode)
        bars_.Tracking().EndMenuMode();
    if (!enabled_)
        return;
    bars_.Model().ApplyClick(*button);
    RaiseClick(*button);
}

void qsCommandBar::OpenMenusAlong(const BarPath& path) {
    if (bars_.Menu().MenuMode)
        bars_.Tracking().EndMenuMode();
    qsCommandBar* control = this;
    for (const std::string& key : path) {
        const auto found = std::ranges::find(control->buttons_, key, &cButtonInt::Key);
        if (!control->enabled_ || found == control->buttons_.end())
            return;
        const auto index = static_cast<std::size_t>(found - control->buttons_.begin());
        if ((*found)->Bar == nullptr || !control->IsSelectable(index))
            return;
        control->OpenItem(index, true);
        control = bars_.Find(control->items_[index].MenuWindow);
        if (control == nullptr)
            return;
    }
}

} // namespace quillshift
