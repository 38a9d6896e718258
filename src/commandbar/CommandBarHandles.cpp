#include "commandbar/CommandBarHandles.h"

#include "commandbar/CommandBarModel.h"
#include "commandbar/ToolkitErrors.h"

namespace quillshift {
namespace {

template <typename Record>
Record& Existing(Record* record) {
    if (!record)
        throw ErrorOf(ToolkitFailure::NoSuchItem);
    return *record;
}

} // namespace

BarControl& BarHandle::Control() const {
    BarControl* const control = owner_ == 0 ? nullptr : model_->Controls().ControlOf(owner_);
    if (!control)
        throw ErrorOf(ToolkitFailure::NoControl);
    return *control;
}

CommandBarModel& BarHandle::Model() const {
    Control();
    return *model_;
}

// cButton

cButtonInt& cButton::Record() const {
    return Existing(Model().FindButton(key_));
}

void cButton::SetCaption(std::u16string value) const {
    Model().Set(Record(), &ButtonRecord::Caption, std::move(value), ChangeReason::SizeChanged);
}

void cButton::SetIconIndex(int value) const {
    Model().Set(Record(), &ButtonRecord::IconIndex, value, ChangeReason::SizeChanged);
}

void cButton::SetColorBox(std::optional<Colour> value) const {
    Model().Set(Record(), &ButtonRecord::ColorBox, value, ChangeReason::SizeChanged);
}

// The shortcut is part of a menu row's width, which is taken at the next layout: it is announced to nobody.
void cButton::SetShortcutKey(std::int16_t value) const {
    Record().ShortcutKey = value;
    Record().Measured.Clear();
}

void cButton::SetShortcutModifiers(int value) const {
    Record().ShortcutModifiers = value;
    Record().Measured.Clear();
}

std::optional<cCommandBar> cButton::Bar() const {
    const cCommandBarInt* const bar = Record().Bar;
    return bar ? std::optional(Make<cCommandBar>(bar->Key)) : std::nullopt;
}

void cButton::SetBar(const std::optional<cCommandBar>& value) const {
    Model().SetBar(Record(), value ? &Existing(Model().FindBar(value->Key())) : nullptr);
}

void cButton::SetChecked(bool value) const {
    Model().SetChecked(Record(), value);
}

void cButton::SetEnabled(bool value) const {
    Model().Set(Record(), &ButtonRecord::Enabled, value, ChangeReason::StateChanged);
}

void cButton::SetLocked(bool value) const {
    Model().Set(Record(), &ButtonRecord::Locked, value, ChangeReason::StateChanged);
}

void cButton::SetShowCaptionInToolbar(bool value) const {
    Model().Set(Record(), &ButtonRecord::ShowCaptionInToolbar, value, ChangeReason::SizeChanged);
}

void cButton::SetShowDropDownInToolbar(bool value) const {
    Model().Set(Record(), &ButtonRecord::ShowDropDownInToolbar, value, ChangeReason::SizeChanged);
}

void cButton::SetVisible(bool value) const {
    Model().Set(Record(), &ButtonRecord::Visible, value, ChangeReason::SizeChanged);
}

void cButton::SetPanelWidth(int value) const {
    Model().Set(Record(), &ButtonRecord::PanelWidth, value, ChangeReason::SizeChanged);
}

void cButton::SetPanelControl(quillshift::PanelControl* value) const {
    Model().SetPanel(Record(), value, Control());
}

// cButtons

int cButtons::count() const {
    return HasWindow() ? Model().Buttons().count() : 0;
}

cButton cButtons::Item(int ordinal) const {
    return Make<cButton>(Model().Buttons().Item(ordinal)->Key);
}

cButton cButtons::Item(std::string_view key) const {
    return Make<cButton>(Model().Buttons().Item(key)->Key);
}

void cButtons::Remove(std::string_view key) const {
    Model().RemoveButton(Existing(Model().FindButton(key)));
}

cButton cButtons::Add(std::string key, int iconIndex, std::u16string caption, ButtonStyle style,
                      std::u16string toolTip, std::int16_t shortcutKey, int shortcutModifiers) const {
    cButtonInt& button = Model().AddButton(std::move(key));
    button.IconIndex = iconIndex;
    button.Caption = std::move(caption);
    button.Style = style;
    button.ToolTip = std::move(toolTip);
    button.ShortcutKey = shortcutKey;
    button.ShortcutModifiers = shortcutModifiers;
    return Make<cButton>(button.Key);
}

// cCommandBarButtons

cCommandBarInt& cCommandBarButtons::Record() const {
    return Existing(Model().FindBar(bar_));
}

cButtonInt& cCommandBarButtons::Given(const std::optional<cButton>& button) const {
    if (!button)
        throw ErrorOf(ToolkitFailure::NothingSet);
    return Existing(Model().FindButton(button->Key()));
}

int cCommandBarButtons::OrdinalOf(const std::optional<cButton>& neighbour) const {
    const int ordinal = Record().Buttons.OrdinalOf(Given(neighbour).Key);
    if (ordinal == 0)
        throw ErrorOf(ToolkitFailure::NoSuchItem);
    return ordinal;
}

int cCommandBarButtons::count() const {
    return Record().Buttons.count();
}

cButton cCommandBarButtons::Item(int ordinal) const {
    return Make<cButton>(Record().Buttons.Item(ordinal)->Key);
}

cButton cCommandBarButtons::Item(std::string_view key) const {
    return Make<cButton>(Record().Buttons.Item(key)->Key);
}

void cCommandBarButtons::Clear() const {
    Model().Clear(Record());
}

void cCommandBarButtons::Remove(std::string_view key) const {
    cButtonInt* const* const button = Record().Buttons.Find(key);
    Model().TakeOff(Record(), *Existing(button));
}

void cCommandBarButtons::Add(const std::optional<cButton>& button) const {
    Model().Insert(Record(), count() + 1, Given(button));
}

void cCommandBarButtons::InsertBefore(const std::optional<cButton>& button,
                                      const std::optional<cButton>& neighbour) const {
    Model().Insert(Record(), OrdinalOf(neighbour), Given(button));
}

void cCommandBarButtons::InsertAfter(const std::optional<cButton>& button,
                                     const std::optional<cButton>& neighbour) const {
    Model().Insert(Record(), OrdinalOf(neighbour) + 1, Given(button));
}

// cCommandBar

cCommandBarInt& cCommandBar::Record() const {
    return Existing(Model().FindBar(key_));
}

std::u16string cCommandBar::Title() const {
    return Record().Title;
}

void cCommandBar::SetTitle(std::u16string value) const {
    Model().SetTitle(Record(), std::move(value));
}

cCommandBarButtons cCommandBar::Buttons() const {
    return Make<cCommandBarButtons>(Record().Key);
}

// cCommandBars

int cCommandBars::count() const {
    return HasWindow() ? Model().Bars().count() : 0;
}

cCommandBar cCommandBars::Item(int ordinal) const {
    return Make<cCommandBar>(Model().Bars().Item(ordinal)->Key);
}

cCommandBar cCommandBars::Item(std::string_view key) const {
    return Make<cCommandBar>(Model().Bars().Item(key)->Key);
}

void cCommandBars::Remove(std::string_view key) const {
    Model().RemoveBar(Existing(Model().FindBar(key)));
}

cCommandBar cCommandBars::Add(std::string key, std::u16string title) const {
    return Make<cCommandBar>(Model().AddBar(std::move(key), std::move(title)).Key);
}

} // namespace quillshift
