#include "commandbar/CommandBarModel.h"

#include "commandbar/PanelControl.h"
#include "commandbar/ToolkitErrors.h"

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

// The toolkit's own bars, button by button, each bar behind those that its buttons open.
struct BuiltInButton {
    std::string_view bar;
    std::string_view key;
    std::u16string_view caption; ///< empty for a separator
    std::string_view opens = {};
    bool enabled = true;
};
constexpr auto kBuiltIn = std::to_array<BuiltInButton>({
    {"CHEVRON:ADDORREMOVE", "CHEVRON:ADDORREMOVE:SEPARATOR", u""},
    {"CHEVRON:ADDORREMOVE", "CHEVRON:ADDORREMOVE:RESET", u"&Reset Toolbar", "", false},
    {"CHEVRON:ADDORREMOVEBAR", "CHEVRON:ADDORREMOVEBAR", u"CommandBar Name", "CHEVRON:ADDORREMOVE"},
    {"CHEVRON:ADDORREMOVEBAR", "CHEVRON:SEPARATOR", u""},
    {"CHEVRON:ADDORREMOVEBAR", "CHEVRON:CUSTOMISE", u"&Customise...", "", false},
    {"CHEVRON", "CHEVRON:ADDORREMOVE", u"&Add or Remove Buttons", "CHEVRON:ADDORREMOVEBAR"},
});

template <typename Registry>
void CheckNewKey(const Registry& registry, std::string_view key) {
    if (key.empty())
        throw ErrorOf(ToolkitFailure::AddFailed);
    if (IsNumericText(key))
        throw ErrorOf(ToolkitFailure::TypeMismatch);
    if (registry.Contains(key))
        throw ErrorOf(ToolkitFailure::KeyInUse);
}

// A copy of the values, to walk while the collection may change.
template <typename Value>
std::vector<Value> ValuesOf(const KeyedCollection<Value>& collection) {
    std::vector<Value> values;
    values.reserve(static_cast<std::size_t>(collection.count()));
    for (const auto& [key, value] : collection)
        values.push_back(value);
    return values;
}

// Enters a control at a bar, its buttons and what hangs below them. A bar that has it already is left alone,
// which also ends a ring of bars. On a button the first control of each top-level window stays.
void SpreadOwner(cCommandBarInt& bar, const BarOwner& owner) {
    if (bar.Owners.Contains(WindowKey(owner.Window)))
        return;
    bar.Owners.Add(WindowKey(owner.Window), owner);
    const std::string top = WindowKey(owner.Top);
    for (const auto& [key, button] : bar.Buttons) {
        if (!button->OwnerWindows.Contains(top))
            button->OwnerWindows.Add(top, owner.Window);
        if (button->Bar)
            SpreadOwner(*button->Bar, owner);
    }
}

// One walk through buttons and what hangs below them in search of a shortcut.
class ShortcutSearch {
public:
    ShortcutSearch(int virtualKey, int modifiers) : virtualKey_(virtualKey), modifiers_(modifiers) {}

    cButtonInt* In(cButtonInt& button) {
        if (!button.Enabled)
            return nullptr;
        if (button.ShortcutKey == virtualKey_ && button.ShortcutModifiers == modifiers_)
            return &button;
        return button.Bar ? In(*button.Bar) : nullptr;
    }

private:
    cButtonInt* In(const cCommandBarInt& bar) {
        // A bar searched once holds no match, and may hang below itself.
        if (std::ranges::find(searched_, &bar) != searched_.end())
            return nullptr;
        searched_.push_back(&bar);
        for (const auto& [key, button] : bar.Buttons)
            if (cButtonInt* const match = In(*button))
                return match;
        return nullptr;
    }

    int virtualKey_;
    int modifiers_;
    std::vector<const cCommandBarInt*> searched_;
};

} // namespace

std::vector<cButtonInt*> cCommandBarInt::GroupOf(const cButtonInt& button) const {
    std::vector<cButtonInt*> group;
    bool found = false;
    for (const auto& [key, each] : Buttons) {
        if (each->Style != ButtonStyle::Separator)
            group.push_back(each);
        else if (found)
            break;
        else
            group.clear();
        found = found || each == &button;
    }
    return group;
}

void CommandBarModel::Open() {
    if (bars_.Contains(kBuiltIn.front().bar))
        return;
    for (const BuiltInButton& entry : kBuiltIn) {
        cCommandBarInt* bar = FindBar(entry.bar);
        if (!bar)
            bar = &AddBar(std::string(entry.bar), {});
        cButtonInt& button = AddButton(std::string(entry.key));
        button.Caption = entry.caption;
        button.Style = entry.caption.empty() ? ButtonStyle::Separator : ButtonStyle::Normal;
        button.Enabled = entry.enabled;
        button.Bar = FindBar(entry.opens);
        Insert(*bar, bar->Buttons.count() + 1, button);
    }
}

void CommandBarModel::Close() {
    showings_.clear();
    bars_.Clear();
    buttons_.Clear();
}

cCommandBarInt* CommandBarModel::FindBar(std::string_view key) const {
    const auto* const found = bars_.Find(key);
    return found ? found->get() : nullptr;
}

cButtonInt* CommandBarModel::FindButton(std::string_view key) const {
    const auto* const found = buttons_.Find(key);
    return found ? found->get() : nullptr;
}

cCommandBarInt& CommandBarModel::AddBar(std::string key, std::u16string title) {
    CheckNewKey(bars_, key);
    auto bar = std::make_unique<cCommandBarInt>(key);
    bar->Title = std::move(title);
    bars_.Add(std::move(key), std::move(bar));
    return *bars_.Item(bars_.count());
}

cButtonInt& CommandBarModel::AddButton(std::string key) {
    CheckNewKey(buttons_, key);
    auto button = std::make_unique<cButtonInt>(key);
    buttons_.Add(std::move(key), std::move(button));
    return *buttons_.Item(buttons_.count());
}

void CommandBarModel::RemoveBar(cCommandBarInt& bar) {
    Clear(bar);
    for (const auto& [key, button] : buttons_)
        if (button->Bar == &bar)
            button->Bar = nullptr;
    std::erase_if(showings_, [&](const Showing& showing) { return showing.bar == &bar; });
    bars_.Remove(bar.Key);
    RefreshOwners();
}

void CommandBarModel::RemoveButton(cButtonInt& button) {
    for (cCommandBarInt* const bar : ValuesOf(button.ParentBars))
        TakeOff(*bar, button);
    buttons_.Remove(button.Key);
}

void CommandBarModel::Insert(cCommandBarInt& bar, int ordinal, cButtonInt& button) {
    if (bar.Buttons.Contains(button.Key))
        throw ErrorOf(ToolkitFailure::KeyInUse);
    bar.Buttons.Insert(ordinal, button.Key, &button);
    button.ParentBars.Add(bar.Key, &bar);
    RefreshOwners();
    AnnounceBar(bar, ChangeReason::ContentChanged);
}

void CommandBarModel::TakeOff(cCommandBarInt& bar, cButtonInt& button) {
    bar.Buttons.Remove(button.Key);
    button.ParentBars.Remove(bar.Key);
    RefreshOwners();
    AnnounceBar(bar, ChangeReason::ContentChanged);
}

void CommandBarModel::Clear(cCommandBarInt& bar) {
    for (const auto& [key, button] : bar.Buttons)
        button->ParentBars.Remove(bar.Key);
    bar.Buttons.Clear();
    RefreshOwners();
    AnnounceBar(bar, ChangeReason::ContentChanged);
}

void CommandBarModel::Show(cCommandBarInt& bar, const BarControl& control) {
    std::erase_if(showings_,
                  [&](const Showing& showing) { return showing.owner.Window == control.Window(); });
    showings_.push_back({&bar, {control.Window(), control.TopWindow()}});
    RefreshOwners();
}

void CommandBarModel::Leave(WindowId control) {
    std::erase_if(showings_, [&](const Showing& showing) { return showing.owner.Window == control; });
    RefreshOwners();
}

// Worked out afresh each time: a button may be reached over several bars, and what goes with one of them must
// not take away what it has by another.
void CommandBarModel::RefreshOwners() {
    for (const auto& [key, bar] : bars_)
        bar->Owners.Clear();
    for (const auto& [key, button] : buttons_)
        button->OwnerWindows.Clear();
    for (const Showing& showing : showings_)
        SpreadOwner(*showing.bar, showing.owner);
}

void CommandBarModel::AnnounceButton(cButtonInt& button, ChangeReason reason) {
    if (reason == ChangeReason::SizeChanged)
        button.Measured.Clear();
    for (cCommandBarInt* const bar : ValuesOf(button.ParentBars))
        AnnounceBar(*bar, reason, &button);
}

void CommandBarModel::AnnounceBar(cCommandBarInt& bar, ChangeReason reason, cButtonInt* button) {
    if (reason == ChangeReason::CheckChanged && button)
        ApplyRadioRule(bar, *button);
    for (const BarOwner& owner : ValuesOf(bar.Owners))
        if (BarControl* const control = controls_.ControlOf(owner.Window))
            control->OnBarChanged(bar, reason, button);
}

void CommandBarModel::ApplyRadioRule(cCommandBarInt& bar, cButtonInt& button) {
    if (bar.InGroupUpdate || !button.IsRadio())
        return;
    bar.InGroupUpdate = true;
    const std::vector<cButtonInt*> group = bar.GroupOf(button);
    if (button.Checked)
        for (cButtonInt* const other : group)
            if (other != &button)
                SetChecked(*other, false);
    if (button.Style == ButtonStyle::Radio && std::ranges::none_of(group, &ButtonRecord::Checked))
        SetChecked(button, true);
    bar.InGroupUpdate = false;
}

void CommandBarModel::SetChecked(cButtonInt& button, bool checked) {
    if (button.IsCheckable())
        Set(button, &ButtonRecord::Checked, checked, ChangeReason::CheckChanged);
}

void CommandBarModel::SetBar(cButtonInt& button, cCommandBarInt* bar) {
    button.Bar = bar;
    button.Measured.Clear(); // the arrow takes room
    RefreshOwners();
}

void CommandBarModel::SetPanel(cButtonInt& button, PanelControl* panel, const BarControl& control) {
    if (control.IsPopup())
        return;
    if (button.Panel)
        button.Panel->SetVisible(false);
    button.Panel = panel;
    if (panel) {
        panel->SetContainer(control.Window());
        panel->SetVisible(true);
    }
    AnnounceButton(button, ChangeReason::SizeChanged);
}

void CommandBarModel::SetTitle(cCommandBarInt& bar, std::u16string title) {
    bar.Title = std::move(title);
    AnnounceBar(bar, ChangeReason::TitleChanged);
}

void CommandBarModel::ApplyClick(cButtonInt& button) {
    if (button.CustomiseState != CustomiseState::PlainCommand)
        button.CustomiseState = button.CustomiseState == CustomiseState::Ticked ? CustomiseState::NotTicked
                                                                                : CustomiseState::Ticked;
    SetChecked(button, !button.Checked);
}

std::optional<ShortcutMatch> CommandBarModel::FindShortcut(WindowId topWindow, int virtualKey,
                                                           int modifiers) const {
    const std::string top = WindowKey(topWindow);
    ShortcutSearch search(virtualKey, modifiers);
    if (virtualKey == 0)
        return std::nullopt;
    for (const auto& [key, button] : buttons_)
        if (const WindowId* const control = button->OwnerWindows.Find(top))
            if (cButtonInt* const match = search.In(*button))
                return ShortcutMatch{match, *control};
    return std::nullopt;
}

} // namespace quillshift
