#pragma once

#include "base/KeyedCollection.h"
#include "commandbar/BarControl.h"
#include "commandbar/cButtonInt.h"
#include "commandbar/cCommandBarInt.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillshift {

using BarRegistry = KeyedCollection<std::unique_ptr<cCommandBarInt>>;
using ButtonRegistry = KeyedCollection<std::unique_ptr<cButtonInt>>;

/// A button whose shortcut was pressed, and the control that is to raise its click.
struct ShortcutMatch {
    cButtonInt* button;
    WindowId control;
};

/// Every bar and every button of the process and what ties them: a button exists once and stands on any
/// number of bars, a bar exists once and is shown by any number of controls. A change is announced to each
/// bar that holds the button and from there to each control that shows, or can open, the bar.
/// The host reaches all this through the handles; the toolkit's own parts use it directly.
/// Outlives every handle and every control.
class CommandBarModel {
public:
    explicit CommandBarModel(const ControlDirectory& controls) : controls_(controls) {}

    /// Makes the toolkit's own bars; for the first control. Does nothing when open.
    void Open();
    /// Drops all bars and buttons; for when the last control has gone.
    void Close();

    const ControlDirectory& Controls() const { return controls_; }
    const BarRegistry& Bars() const { return bars_; }
    const ButtonRegistry& Buttons() const { return buttons_; }
    /// Null if there is none with that key.
    cCommandBarInt* FindBar(std::string_view key) const;
    cButtonInt* FindButton(std::string_view key) const;

    // What exists, and what stands where. Each change of a bar's content ends in one `ContentChanged`.

    /// Both refuse an empty key (`AddFailed`), numeric text (`TypeMismatch`) and a key that is taken
    /// (`KeyInUse`).
    cCommandBarInt& AddBar(std::string key, std::u16string title);
    cButtonInt& AddButton(std::string key);
    /// Takes the buttons off the bar, which are kept, and every reference to the bar back.
    void RemoveBar(cCommandBarInt& bar);
    /// Takes the button off every bar first.
    void RemoveButton(cButtonInt& button);
    /// Puts a button on a bar so that it stands at `ordinal`. `KeyInUse` if it is there already.
    void Insert(cCommandBarInt& bar, int ordinal, cButtonInt& button);
    void TakeOff(cCommandBarInt& bar, cButtonInt& button);
    void Clear(cCommandBarInt& bar);

    // What a control shows

    /// The control shows this bar from now on, and no other.
    void Show(cCommandBarInt& bar, const BarControl& control);
    /// The control shows no bar any more.
    void Leave(WindowId control);

    // What a button is

    /// Sets a field and announces a new value; a value that stands already is no change.
    template <typename Field>
    void Set(cButtonInt& button, Field ButtonRecord::*field, std::type_identity_t<Field> value,
             ChangeReason reason) {
        if (button.*field == value)
            return;
        button.*field = std::move(value);
        AnnounceButton(button, reason);
    }
    /// Does nothing for a button whose style has no check mark. Buttons of a radio group follow.
    void SetChecked(cButtonInt& button, bool checked);
    void SetBar(cButtonInt& button, cCommandBarInt* bar);
    /// Hides the panel that was there and takes the new one, or none, into the control. Does nothing while
    /// the control is a popup.
    void SetPanel(cButtonInt& button, PanelControl* panel, const BarControl& control);
    void SetTitle(cCommandBarInt& bar, std::u16string title);
    /// What a click does to the button before the host hears of it: ticks its row in the add-or-remove list,
    /// flips its check mark.
    void ApplyClick(cButtonInt& button);

    /// The first enabled button, in the order of their making and with what hangs below it before the next,
    /// whose shortcut this is, as far as it can be reached from that top-level window.
    std::optional<ShortcutMatch> FindShortcut(WindowId topWindow, int virtualKey, int modifiers) const;

private:
    struct Showing {
        cCommandBarInt* bar;
        BarOwner owner;
    };

    void AnnounceButton(cButtonInt& button, ChangeReason reason);
    void AnnounceBar(cCommandBarInt& bar, ChangeReason reason, cButtonInt* button = nullptr);
    void ApplyRadioRule(cCommandBarInt& bar, cButtonInt& button);
    void RefreshOwners();

    const ControlDirectory& controls_;
    BarRegistry bars_;
    ButtonRegistry buttons_;
    std::vector<Showing> showings_; ///< in the order in which the controls came
};

} // namespace quillshift
