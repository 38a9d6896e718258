#pragma once

#include "base/Colour.h"
#include "commandbar/cButtonInt.h"
#include "platform/WindowId.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillshift {

class BarControl;
class cCommandBar;
class CommandBarModel;

// The host's way to bars and buttons. A handle holds only the window of a control and a key and looks both up
// anew at each call; it is made freely and copied freely. Every operation but `Key` fails with `NoControl`
// when the control has gone, and with `NoSuchItem` when the handle's own bar or button has. `Item` with a key
// or an ordinal that is not there passes on the failure of the collection, Error 5 or 9.

class BarHandle {
protected:
    BarHandle(CommandBarModel& model, WindowId owner) : model_(&model), owner_(owner) {}

    BarControl& Control() const;
    /// The model, once the control has been found.
    CommandBarModel& Model() const;
    bool HasWindow() const { return owner_ != 0; }
    template <typename Handle>
    Handle Make(std::string key) const {
        return {*model_, owner_, std::move(key)};
    }

private:
    CommandBarModel* model_;
    WindowId owner_;
};

/// One button, whichever bars it stands on.
class cButton : private BarHandle {
public:
    cButton(CommandBarModel& model, WindowId owner, std::string key)
        : BarHandle(model, owner), key_(std::move(key)) {}

    const std::string& Key() const { return key_; }
    std::u16string Tag() const { return Record().Tag; }
    void SetTag(std::u16string value) const { Record().Tag = std::move(value); }
    std::int32_t itemData() const { return Record().itemData; }
    void SetItemData(std::int32_t value) const { Record().itemData = value; }
    std::u16string Caption() const { return Record().Caption; }
    void SetCaption(std::u16string value) const;
    int IconIndex() const { return Record().IconIndex; }
    void SetIconIndex(int value) const;
    std::optional<Colour> ColorBox() const { return Record().ColorBox; }
    void SetColorBox(std::optional<Colour> value) const;
    std::u16string ToolTip() const { return Record().ToolTip; }
    void SetToolTip(std::u16string value) const { Record().ToolTip = std::move(value); }
    std::int16_t ShortcutKey() const { return Record().ShortcutKey; }
    void SetShortcutKey(std::int16_t value) const;
    int ShortcutModifiers() const { return Record().ShortcutModifiers; }
    void SetShortcutModifiers(int value) const;
    /// The sub-menu that it opens, if it has one.
    std::optional<cCommandBar> Bar() const;
    void SetBar(const std::optional<cCommandBar>& value) const;
    bool Checked() const { return Record().Checked; }
    void SetChecked(bool value) const;
    bool Enabled() const { return Record().Enabled; }
    void SetEnabled(bool value) const;
    bool Locked() const { return Record().Locked; }
    void SetLocked(bool value) const;
    bool ShowCaptionInToolbar() const { return Record().ShowCaptionInToolbar; }
    void SetShowCaptionInToolbar(bool value) const;
    bool ShowDropDownInToolbar() const { return Record().ShowDropDownInToolbar; }
    void SetShowDropDownInToolbar(bool value) const;
    bool Visible() const { return Record().Visible; }
    void SetVisible(bool value) const;
    int PanelWidth() const { return Record().PanelWidth; }
    void SetPanelWidth(int value) const;
    quillshift::PanelControl* PanelControl() const { return Record().Panel; }
    /// Hides the panel that was there and takes the new one into the bar control, unless that is a popup.
    void SetPanelControl(quillshift::PanelControl* value) const;

private:
    cButtonInt& Record() const;

    std::string key_;
};

/// All buttons of the process.
class cButtons : private BarHandle {
public:
    cButtons(CommandBarModel& model, WindowId owner) : BarHandle(model, owner) {}

    /// 0 for a control that has no window.
    int count() const;
    cButton Item(int ordinal) const;
    cButton Item(std::string_view key) const;
    /// Takes the button off every bar and deletes it. `NoSuchItem` if there is none.
    void Remove(std::string_view key) const;
    /// Makes a button; its style is fixed from then on. `TypeMismatch` for a key that is numeric text,
    /// `KeyInUse` for one that is taken, `AddFailed` for an empty one.
    cButton Add(std::string key, int iconIndex = -1, std::u16string caption = {},
                ButtonStyle style = ButtonStyle::Normal, std::u16string toolTip = {},
                std::int16_t shortcutKey = 0, int shortcutModifiers = 0) const;
};

/// The buttons on one bar, in the order of display. Adding and inserting fail with `NothingSet` without a
/// button, `KeyInUse` for one that is on the bar, `NoSuchItem` for one that is not where it should be.
class cCommandBarButtons : private BarHandle {
public:
    cCommandBarButtons(CommandBarModel& model, WindowId owner, std::string bar)
        : BarHandle(model, owner), bar_(std::move(bar)) {}

    int count() const;
    cButton Item(int ordinal) const;
    cButton Item(std::string_view key) const;
    void Clear() const;
    /// Takes a button off the bar; the button stays.
    void Remove(std::string_view key) const;
    void Add(const std::optional<cButton>& button) const;
    void InsertBefore(const std::optional<cButton>& button, const std::optional<cButton>& neighbour) const;
    void InsertAfter(const std::optional<cButton>& button, const std::optional<cButton>& neighbour) const;

private:
    cCommandBarInt& Record() const;
    cButtonInt& Given(const std::optional<cButton>& button) const;
    int OrdinalOf(const std::optional<cButton>& neighbour) const;

    std::string bar_;
};

/// One bar, whichever controls show it.
class cCommandBar : private BarHandle {
public:
    cCommandBar(CommandBarModel& model, WindowId owner, std::string key)
        : BarHandle(model, owner), key_(std::move(key)) {}

    const std::string& Key() const { return key_; }
    std::u16string Title() const;
    void SetTitle(std::u16string value) const;
    cCommandBarButtons Buttons() const;

private:
    cCommandBarInt& Record() const;

    std::string key_;
};

/// All bars of the process.
class cCommandBars : private BarHandle {
public:
    cCommandBars(CommandBarModel& model, WindowId owner) : BarHandle(model, owner) {}

    /// 0 for a control that has no window.
    int count() const;
    cCommandBar Item(int ordinal) const;
    cCommandBar Item(std::string_view key) const;
    /// Empties the bar and deletes it; its buttons stay. `NoSuchItem` if there is none.
    void Remove(std::string_view key) const;
    /// Fails as `cButtons::Add` does.
    cCommandBar Add(std::string key, std::u16string title = {}) const;
};

} // namespace quillshift
