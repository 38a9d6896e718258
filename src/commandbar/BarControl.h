#pragma once

#include "platform/WindowId.h"

namespace quillshift {

class cButtonInt;
class cCommandBarInt;

/// What has changed about a bar or one of its buttons.
enum class ChangeReason {
    ContentChanged = 1, ///< buttons came or went
    TitleChanged = 3,
    SizeChanged = 4,  ///< a button may measure differently
    StateChanged = 5, ///< enabled or locked
    CheckChanged = 6,
};

/// What the model asks of a control that shows a bar.
class BarControl {
public:
    virtual ~BarControl() = default;

    virtual WindowId Window() const = 0;
    /// Top-level window that the control stands in.
    virtual WindowId TopWindow() const = 0;
    virtual bool IsPopup() const = 0;
    /// A bar has changed, which may be one that hangs below the bar shown; a control passes over a bar that
    /// it does not show. `button` is the changed one, null for the bar itself. Must not add or remove bars or
    /// buttons.
    virtual void OnBarChanged(const cCommandBarInt& bar, ChangeReason reason, const cButtonInt* button) = 0;
};

/// The way from a window to the bar control in it, which the control lays by registering under
/// "qsCommandBar:Control" as a property of its window.
class ControlDirectory {
public:
    virtual ~ControlDirectory() = default;
    /// Null if there is no such window, or no control in it.
    virtual BarControl* ControlOf(WindowId window) const = 0;
};

} // namespace quillshift
