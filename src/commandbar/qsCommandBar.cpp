// What a control is told: its properties, the bar it shows, and what happens to its window.

#include "commandbar/qsCommandBar.h"

#include "commandbar/PanelControl.h"

#include <algorithm>

namespace quillshift {
namespace {

constexpr std::string_view kAddOrRemoveBar = "CHEVRON:ADDORREMOVE";

SharedIcons IconsFrom(const ImageListHandle& list) {
    auto icons = std::make_shared<cCommandBarImageList>();
    icons->InitialiseFromVariant(list);
    return icons;
}

} // namespace

qsCommandBar::qsCommandBar(mCommandBars& bars, BarWindow& window)
    : bars_(bars),
      window_(window),
      tmrMenuPopup_(bars.Services().timers.Make([this] { OnMenuPopupTimer(); })),
      tmrLostMouse_(bars.Services().timers.Make([this] { OnLostMouseTimer(); })) {
    window_.SetListener(this);
    bars_.Register(*this);
}

qsCommandBar::~qsCommandBar() {
    if (!shownKey_.empty())
        bars_.Model().Leave(Window());
    WatchTopWindow(false);
    bars_.Unregister(*this);
    window_.SetListener(nullptr);
}

DisplayMode qsCommandBar::Mode() const {
    if (isPopup_)
        return shownKey_ == kAddOrRemoveBar ? DisplayMode::AddOrRemoveList : DisplayMode::PopupMenu;
    return mainMenu_ ? DisplayMode::MainMenu : DisplayMode::Toolbar;
}

BarIcons* qsCommandBar::Icons() const {
    return isPopup_ && hiddenOf_ == 0 ? menuIcons_.get() : toolbarIcons_.get();
}

bool qsCommandBar::IsSelectable(std::size_t index) const {
    return records_[index]->IsSelectable(Mode(), orientation_);
}

// --- Properties

void qsCommandBar::SetButtonTextPosition(TextPosition position) {
    if (position == textPosition_)
        return;
    textPosition_ = position;
    Layout();
}

void qsCommandBar::SetOrientation(quillshift::Orientation orientation) {
    if (isPopup_)
        return;
    orientation_ = orientation;
    Layout();
}

void qsCommandBar::SetToolbarImageList(const ImageListHandle& icons) {
    toolbarIcons_ = IconsFrom(icons);
    ApplyIconColours();
    Layout();
}

void qsCommandBar::SetMenuImageList(const ImageListHandle& icons) {
    menuIcons_ = IconsFrom(icons);
    ApplyIconColours();
    Layout();
}

void qsCommandBar::ApplyIconColours() {
    const mCommandBarColours& colours = bars_.Colours();
    const auto colour = [&](Slot slot) { return colours.Of(slot).value_or(Colour{}); };
    if (toolbarIcons_ && !isPopup_) {
        toolbarIcons_->SetDisabledColor(colour(Slot::DisabledText));
        toolbarIcons_->SetHighlightColor(colour(Slot::HotText));
    }
    if (menuIcons_)
        menuIcons_->SetDisabledColor(colour(Slot::IconDisabled));
}

void qsCommandBar::SetRedraw(bool on) {
    redraw_ = on;
    window_.SetPainted(on);
    if (on)
        Repaint();
}

void qsCommandBar::SetHeight(int px) {
    if (px == height_)
        return;
    height_ = px;
    Layout();
}

void qsCommandBar::SetFont(FontSpec font) {
    font_ = std::move(font);
    Layout();
}

void qsCommandBar::SetBackgroundImage(const PixelView& picture) {
    background_.ClearUp();
    if (picture.bits != nullptr)
        background_.CreateFromHBitmap(picture);
    Repaint();
}

BitmapPicture qsCommandBar::AdjustImage(const PixelView& picture, int hue, int luminance, float saturation) {
    cAlphaDIBSection copy;
    copy.CreateFromHBitmap(picture);
    if (hue > -1 && luminance > -1)
        copy.AdjustHLS(hue, luminance, saturation);
    return copy.ExtractDib();
}

void qsCommandBar::AdjustBackgroundImage(int hue, int luminance, float saturation) {
    background_.AdjustHLS(hue, luminance, saturation);
    Repaint();
}

// --- The bar shown

std::optional<cCommandBar> qsCommandBar::Toolbar() const {
    if (shownKey_.empty())
        return std::nullopt;
    return cCommandBar(bars_.Model(), Window(), shownKey_);
}

void qsCommandBar::SetToolbar(const std::optional<cCommandBar>& bar) {
    if (!OpenMenus().empty())
        bars_.Tracking().CloseMenusOf(Window());
    if (!shownKey_.empty())
        bars_.Model().Leave(Window());
    shownKey_ = bar ? bar->Key() : std::string();
    cCommandBarInt* const shown = bars_.Model().FindBar(shownKey_);
    WatchTopWindow(shown != nullptr && !isPopup_);
    if (shown != nullptr) {
        bars_.Model().Show(*shown, *this);
        for (const auto& [key, button] : shown->Buttons)
            if (button->Panel && !isPopup_)
                button->Panel->SetContainer(Window());
    }
    items_.clear();
    stripLayout_ = {};
    Layout();
}

void qsCommandBar::OnBarChanged(const cCommandBarInt& bar, ChangeReason reason, const cButtonInt* button) {
    if (bar.Key != shownKey_)
        return;
    switch (reason) {
    case ChangeReason::ContentChanged:
    case ChangeReason::SizeChanged:
        Layout();
        return;
    case ChangeReason::StateChanged:
    case ChangeReason::CheckChanged: {
        const auto found = std::ranges::find(buttons_, button);
        if (hiddenOf_ != 0)
            Layout(); // its rows are copies
        else if (mainMenu_ || found == buttons_.end())
            Repaint();
        else
            RepaintItem(static_cast<std::size_t>(found - buttons_.begin()));
        return;
    }
    case ChangeReason::TitleChanged:
        Repaint();
        return;
    }
}

// --- The windows

// Changes of the system and of the application's activation are told to top-level windows.
void qsCommandBar::WatchTopWindow(bool on) {
    const WindowId top = on ? TopWindow() : 0;
    if (top == watchedTop_)
        return;
    MSubclass& subclass = bars_.Services().subclass;
    for (const int watched : {message::kSettingChange, message::kActivateApplication}) {
        if (watchedTop_ != 0)
            subclass.DetachMessage(*this, watchedTop_, watched);
        if (top != 0)
            subclass.AttachMessage(*this, top, watched);
    }
    watchedTop_ = top;
}

MessageValue qsCommandBar::WindowProc(WindowId /*window*/, int message, MessageValue wParam,
                                      MessageValue /*lParam*/) {
    if (message == message::kActivateApplication && wParam == 0 && bars_.Menu().MenuMode)
        bars_.Tracking().EndMenuMode();
    if (message == message::kSettingChange) {
        for (const auto& [key, button] : bars_.Model().Buttons())
            button->Measured.Clear(); // fonts may have another size
        ApplyIconColours();
        OnSize();
    }
    return 0;
}

void qsCommandBar::OnSize() {
    if (inResize_)
        return;
    inResize_ = true;
    if (!isPopup_)
        Layout();
    inResize_ = false;
    if (Resize)
        Resize();
}

} // namespace quillshift
