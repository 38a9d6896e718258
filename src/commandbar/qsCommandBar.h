#pragma once

#include "commandbar/BarPainter.h"
#include "commandbar/PopupPlacing.h"
#include "commandbar/ToolbarLayout.h"
#include "commandbar/Tracking.h"
#include "commandbar/Walking.h"
#include "commandbar/icons/cCommandBarImageList.h"
#include "commandbar/mCommandBars.h"
#include "controls/hooks/ISubclass.h"

#include <functional>
#include <memory>
#include <optional>

namespace quillshift {

/// Icons that a bar and the popups opened from it share.
using SharedIcons = std::shared_ptr<cCommandBarImageList>;

/// The visible widget of the toolkit: shows one bar of the model as a main menu, a toolbar, a popup menu or
/// the add-or-remove list. Lays it out, paints it, follows mouse and keys, and tells the host of clicks.
class qsCommandBar final : public BarControl, private BarWindowListener, private ISubclass {
public:
    /// Both outlive the control.
    qsCommandBar(mCommandBars& bars, BarWindow& window);
    ~qsCommandBar() override;
    qsCommandBar(const qsCommandBar&) = delete;
    qsCommandBar& operator=(const qsCommandBar&) = delete;

    // Events. A popup has its own; the host binds those of the controls it makes.

    std::function<void(const cButton&, bool& cancel)>
        ButtonDropDown;                              ///< the arrow of a split item is pressed
    std::function<void(const cButton&)> ButtonClick; ///< an item without sub-bar, or a shortcut
    std::function<void(const cCommandBar&)> BeforeShowMenu;
    std::function<void(const cCommandBar&)> AfterShowMenu; ///< the popup has closed
    std::function<qsCommandBar*()> RequestNewInstance;     ///< one more control for a popup, or null
    std::function<void()> Resize;                          ///< the control has been laid out
    /// The right button went down, on an item or beside all; client pixels.
    std::function<void(const std::optional<cButton>&, Point at)> RightClick;

    // Properties

    /// Tip of the button for what a toolbar has no room for, shown where its other buttons have tips.
    std::u16string MoreToolTip;
    bool MainMenu() const { return mainMenu_; }
    void SetMainMenu(bool on) { mainMenu_ = on; }
    TextPosition ButtonTextPosition() const { return textPosition_; }
    void SetButtonTextPosition(TextPosition position);
    quillshift::Orientation Orientation() const { return orientation_; }
    /// Ignored on a popup.
    void SetOrientation(quillshift::Orientation orientation);
    void SetToolbarImageList(const ImageListHandle& icons);
    void SetMenuImageList(const ImageListHandle& icons);
    bool Redraw() const { return redraw_; }
    /// Off, what is on the screen stays as it is.
    void SetRedraw(bool on);
    /// Extent in pixels of a toolbar along the top or bottom, which its row fills; 0: as deep as its items.
    int Height() const { return height_; }
    void SetHeight(int px);
    static constexpr int IdealSize() { return 0; } ///< a bar wishes for none
    const FontSpec& Font() const { return font_; }
    void SetFont(FontSpec font);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool on);
    /// The bar that is shown, if one is.
    std::optional<cCommandBar> Toolbar() const;
    void SetToolbar(const std::optional<cCommandBar>& bar);
    /// A picture tiled behind the bar, empty for none; and the same with other colours. What is got is valid
    /// until the next change.
    PixelView BackgroundImage() const { return background_.hDib(); }
    void SetBackgroundImage(const PixelView& picture);
    void AdjustBackgroundImage(int hue, int luminance, float saturation);

    /// A copy of a picture, in other colours where hue and luminance are both given (0 to 255, else -1).
    static BitmapPicture AdjustImage(const PixelView& picture, int hue, int luminance, float saturation);

    // Of the toolkit as a whole, whichever control is asked

    BarStyle Style() const { return bars_.Style(); }
    void SetStyle(BarStyle style) { bars_.SetStyle(style); }
    bool HideInfrequentlyUsed() const { return bars_.HideInfrequentlyUsed; }
    void SetHideInfrequentlyUsed(bool on) { bars_.HideInfrequentlyUsed = on; }
    /// The colours by slot number, 0 to 31; any other throws Error 9. An override of nothing clears it.
    std::optional<Colour> StyleColor(int slot) const { return bars_.Colours().StyleColor(slot); }
    bool UseStyleColor(int slot) const { return bars_.Colours().UseStyleColor(slot); }
    std::optional<Colour> CustomColor(int slot) const { return bars_.Colours().CustomColor(slot); }
    void SetCustomColor(int slot, std::optional<Colour> colour) { bars_.SetCustomColor(slot, colour); }

    cCommandBars CommandBars() { return {bars_.Model(), Window()}; }
    cButtons Buttons() { return {bars_.Model(), Window()}; }
    Point ClientCoordinatesToScreen(Point client) const { return window_.ToScreen(client); }
    Point ScreenCoordinatesToClient(Point screen) const { return window_.FromScreen(screen); }
    /// Opens a bar as a free popup at a point of the screen.
    void ShowPopupMenu(Point screen, const cCommandBar& bar);
    /// Opens the menu in which the buttons of the bar are shown and hidden.
    void ShowChevronMenu(Point screen);

    // BarControl

    WindowId Window() const override { return window_.Id(); }
    WindowId TopWindow() const override { return window_.TopWindow(); }
    bool IsPopup() const override { return isPopup_; }
    void OnBarChanged(const cCommandBarInt& bar, ChangeReason reason, const cButtonInt* button) override;

    // What the toolkit asks of one of its controls

    bool InUse = false; ///< a pooled popup that is open, or about to be
    void ApplyIconColours();
    void Repaint();
    std::vector<WindowId> OpenMenus() const;
    void ForgetMenu(WindowId menu);
    void AnnounceClosed();
    void HidePopup();
    /// Makes an item hot, or none, without opening anything.
    void MakeHot(ItemIndex index);
    void MakeFirstItemHot();
    bool HasItemAt(Point screen) const;
    /// A key while the menu has the keyboard.
    void OnMenuKey(int virtualKey);
    void OnShortcut(cButtonInt& button);
    /// The items as they are laid out; for those who watch.
    std::span<const cDisplayButtonInfo> Items() const { return items_; }

private:
    // BarWindowListener
    void OnPaint(Surface& surface, const Rect& part) override;
    void OnSize() override;
    void OnMouseMove(Point at) override;
    void OnMouseLeave() override;
    void OnMousePress(Point at, MouseButton button) override;
    void OnMouseRelease(Point at, MouseButton button) override;
    BarRole Role() const override;
    std::u16string Title() const override;
    bool IsBelowItem() const override { return OpenerItem().has_value(); }
    std::vector<BarItem> ItemsBelow(const BarPath& path) override;
    void PressItem(const BarPath& path) override;

    // ISubclass
    MessageResponse MsgResponse() const override { return MessageResponse::After; }
    MessageValue WindowProc(WindowId window, int message, MessageValue wParam, MessageValue lParam) override;

    // What is shown
    DisplayMode Mode() const;
    BarIcons* Icons() const;
    const cCommandBarInt* ShownBar() const { return bars_.Model().FindBar(shownKey_); }
    BarButtons Records() const { return records_; }
    bool IsSelectable(std::size_t index) const;
    cButton HandleOf(const cButtonInt& button) const { return {bars_.Model(), Window(), button.Key}; }
    void WatchTopWindow(bool on);

    // Layout and painting
    void Layout();
    void CollectButtons();
    void CollectHiddenRows(const qsCommandBar& strip);
    std::vector<cDisplayButtonInfo> FormerItems(std::span<const cDisplayButtonInfo> before,
                                                std::span<cButtonInt* const> buttons) const;
    void KeepStates(std::span<const cDisplayButtonInfo> former);
    cMeasureButtonParams MeasureParams() const;
    void LayOutRows(const cMeasureButtonParams& params, const ItemMeasure& measure);
    void LayOutStrip(const cMeasureButtonParams& params, const ItemMeasure& measure);
    void PlacePanels();
    BarView View() const;
    void RepaintItem(std::size_t index);

    // Mouse
    TrackedBar TrackingView() const;
    void AfterTracking(const Tracked& tracked);
    void ShowToolTip(ItemIndex hot);
    void HoverInMenuMode(std::size_t index);
    void OnMenuPopupTimer();
    void OnLostMouseTimer();
    bool IsMenuSource() const { return bars_.Menu().MenuMode && bars_.Menu().MenuSource == Window(); }
    void Click(std::size_t index);
    void DropDown(std::size_t index);
    void RaiseClick(const cButtonInt& button);

    // Keys
    void OnPopupKey(int key);
    void OnStripKey(int key);
    void OpenOrClick(std::size_t index);
    void OnMnemonic(int key);
    void LeaveToStrip(Step step);
    void WalkAndOpen(Step step);

    // Assistive programs
    ItemIndex OpenerItem() const;
    const qsCommandBar* ControlThatShows(const BarPath& path) const;
    cButtonInt* ButtonAt(const BarPath& path) const;
    static BarItem Described(const cButtonInt& button);
    BarItem Placed(const cButtonInt& button) const;
    void AnnounceHot(ItemIndex index) const;
    void OpenMenusAlong(const BarPath& path);

    // Popups
    void OpenItem(std::size_t index, bool selectFirst);
    void Open(const cCommandBarInt& bar, ItemIndex item, Point at, bool selectFirst);
    void BecomePopupOf(const qsCommandBar& source, const cCommandBarInt& bar);
    PopupOpening OpeningFrom(ItemIndex item, Point at, Size size) const;
    void ShowAt(const PopupPlace& place);
    void ShowShadows(const Rect& place);

    mCommandBars& bars_;
    BarWindow& window_;
    bool enabled_ = true;
    bool redraw_ = true;
    bool mainMenu_ = false;
    bool inResize_ = false;
    bool isPopup_ = false;
    int height_ = 0;
    quillshift::Orientation orientation_ = quillshift::Orientation::Top;
    TextPosition textPosition_ = TextPosition::BesideIcon;
    FontSpec font_{.name = u"Tahoma", .points = 8};
    SharedIcons toolbarIcons_;
    SharedIcons menuIcons_;
    cAlphaDIBSection background_;

    std::string shownKey_; ///< of the bar shown; empty for none
    WindowId watchedTop_ = 0;
    std::vector<cButtonInt*> buttons_;         ///< of the bar shown, in order; `more_` last, if it is shown
    std::vector<const ButtonRecord*> records_; ///< the same, to read
    std::vector<cDisplayButtonInfo> items_;    ///< one for each
    cButtonInt more_{"CHEVRON:MORE"};          ///< opens what a toolbar has no room for
    std::vector<ButtonRecord> rows_;           ///< what such a menu shows in place of the buttons
    Size menuSize_;                            ///< that a popup has to take
    ToolbarLayout stripLayout_;                ///< the latest one; empty when another bar is shown
    std::optional<Point> lastPointer_;         ///< on the screen
    std::u16string lastToolTip_;
    bool pressedOpenMenu_ = false; ///< the latest press was on an item whose menu was open

    // A popup's own
    WindowId parent_ = 0;   ///< the control that opened it
    WindowId hiddenOf_ = 0; ///< the toolbar whose hidden items it shows, if it does
    PopupPlace place_;

    std::unique_ptr<Timer> tmrMenuPopup_;
    ItemIndex menuPopupTag_;
    std::unique_ptr<Timer> tmrLostMouse_;
};

} // namespace quillshift
