// How a control opens a menu, and what it does as one.

#include "commandbar/PopupPlacing.h"
#include "commandbar/cMenuDropShadow.h"
#include "commandbar/qsCommandBar.h"
#include "platform/Keys.h"

#include <algorithm>

namespace quillshift {
namespace {

Rect WholeScreen(std::span<const MonitorInfo> monitors) {
    Rect whole;
    for (const MonitorInfo& monitor : monitors)
        if (monitor.primary || whole.IsEmpty())
            whole = monitor.bounds;
    return whole;
}

} // namespace

// --- Opening

void qsCommandBar::OpenItem(std::size_t index, bool selectFirst) {
    bars_.Tracking().CloseMenusOf(Window());
    Open(*buttons_[index]->Bar, index, {}, selectFirst);
}

void qsCommandBar::ShowPopupMenu(Point screen, const cCommandBar& bar) {
    if (const cCommandBarInt* const shown = bars_.Model().FindBar(bar.Key()))
        Open(*shown, std::nullopt, screen, false);
}

void qsCommandBar::Open(const cCommandBarInt& bar, ItemIndex item, Point at, bool selectFirst) {
    qsCommandBar* const popup = bars_.ObtainPopup();
    if (popup == nullptr)
        return;
    if (BeforeShowMenu)
        BeforeShowMenu({bars_.Model(), Window(), bar.Key});
    popup->hiddenOf_ = item && buttons_[*item] == &more_ ? Window() : 0;
    popup->BecomePopupOf(*this, bar);
    const std::vector<MonitorInfo> monitors = bars_.Services().system.Monitors();
    popup->place_ = PlacePopup(OpeningFrom(item, at, popup->menuSize_), monitors, WholeScreen(monitors));
    bars_.Tracking().PopupOpening(Window());
    if (item) {
        MakeHot(item);
        items_[*item].ShowingMenu = true;
        items_[*item].MenuWindow = popup->Window();
        RepaintItem(*item);
    }
    popup->ShowAt(popup->place_);
    if (selectFirst)
        popup->OnMenuKey(key::kDown);
    bars_.Tracking().PopupOpened(popup->Window(), Window(), !item.has_value());
}

void qsCommandBar::BecomePopupOf(const qsCommandBar& source, const cCommandBarInt& bar) {
    isPopup_ = true;
    orientation_ = quillshift::Orientation::Top;
    enabled_ = true;
    font_ = source.font_;
    toolbarIcons_ = source.toolbarIcons_;
    menuIcons_ = source.menuIcons_;
    parent_ = source.Window();
    lastPointer_.reset();
    ApplyIconColours();
    SetToolbar(cCommandBar(bars_.Model(), Window(), bar.Key));
}

PopupOpening qsCommandBar::OpeningFrom(ItemIndex item, Point at, Size size) const {
    PopupOpening opening{.size = size,
                         .at = at,
                         .rightToLeft = window_.RightToLeft(),
                         .systemStyle = bars_.Style() == BarStyle::System};
    if (!item)
        return opening;
    const Point origin = window_.ToScreen({0, 0});
    opening.from = isPopup_ ? PopupOpener::PopupRow : BarOpener(orientation_);
    opening.item = AreaOf(items_[*item]).MovedBy(origin.x, origin.y);
    if (isPopup_) {
        opening.parentDirection = place_.direction;
        opening.parentMonitor = place_.monitor;
    }
    return opening;
}

void qsCommandBar::ShowAt(const PopupPlace& place) {
    window_.ShowPopup(place.rect);
    ShowShadows(place.rect);
}

void qsCommandBar::ShowShadows(const Rect& place) {
    const BarSystem& system = bars_.Services().system;
    std::array shadows{cMenuDropShadow(ShadowEdge::Right), cMenuDropShadow(ShadowEdge::Bottom)};
    std::array<ShadowStrip, 2> strips;
    for (std::size_t i = 0; i < shadows.size(); ++i) {
        cMenuDropShadow& shadow = shadows[i];
        shadow.ShadowColor = bars_.Colours().Of(Slot::Shadow).value_or(Colour{});
        if (system.Layered()) {
            shadow.Create(place);
            strips[i] = {shadow.Target(), shadow.Pixels(), cMenuDropShadow::kConstantAlpha};
            continue;
        }
        const ScreenCopy screen = system.CopyOfScreen(shadow.TargetOf(place));
        if (shadow.CreateOver(place, {screen.bits.data(), screen.size.width, screen.size.height}))
            strips[i] = {shadow.Target(), shadow.Pixels(), 255};
    }
    window_.ShowShadows(strips);
}

// --- As a popup, and as what opened one

std::vector<WindowId> qsCommandBar::OpenMenus() const {
    std::vector<WindowId> menus;
    for (const cDisplayButtonInfo& item : items_)
        if (item.ShowingMenu)
            menus.push_back(item.MenuWindow);
    return menus;
}

void qsCommandBar::ForgetMenu(WindowId menu) {
    for (std::size_t i = 0; i < items_.size(); ++i)
        if (items_[i].MenuWindow == menu) {
            items_[i].ShowingMenu = false;
            items_[i].MenuWindow = 0;
            RepaintItem(i);
            AnnounceHot(HotItem(items_));
        }
}

void qsCommandBar::AnnounceClosed() {
    InUse = false;
    if (AfterShowMenu)
        AfterShowMenu({bars_.Model(), Window(), shownKey_});
}

void qsCommandBar::HidePopup() {
    tmrMenuPopup_->Stop();
    tmrLostMouse_->Stop();
    window_.HidePopup();
    SetToolbar(std::nullopt);
    hiddenOf_ = 0;
}

bool qsCommandBar::HasItemAt(Point screen) const {
    return HitTest(items_, window_.FromScreen(screen)).has_value();
}

// --- The menu of the chevron

void qsCommandBar::ShowChevronMenu(Point screen) {
    CommandBarModel& model = bars_.Model();
    cCommandBarInt* const list = model.FindBar("CHEVRON:ADDORREMOVE");
    cButtonInt* const title = model.FindButton("CHEVRON:ADDORREMOVEBAR");
    const cCommandBarInt* const shown = ShownBar();
    if (shown == nullptr || list == nullptr || title == nullptr)
        return;
    model.Set(*title, &ButtonRecord::Caption, shown->Title, ChangeReason::SizeChanged);
    while (list->Buttons.Item(1)->Key != "CHEVRON:ADDORREMOVE:SEPARATOR")
        model.TakeOff(*list, *list->Buttons.Item(1));
    int ordinal = 1;
    for (const auto& [key, button] : shown->Buttons) {
        if (button->Style == ButtonStyle::Separator)
            continue;
        button->CustomiseState = button->Visible ? CustomiseState::Ticked : CustomiseState::NotTicked;
        model.Insert(*list, ordinal++, *button);
    }
    ShowPopupMenu(screen, {model, Window(), "CHEVRON"});
}

} // namespace quillshift
