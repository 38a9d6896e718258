#pragma once

#include "base/KeyedCollection.h"
#include "platform/WindowId.h"

#include <string>
#include <vector>

namespace quillshift {

class cButtonInt;

/// A control that shows a bar, or a bar from which this one can be reached.
struct BarOwner {
    WindowId Window = 0;
    WindowId Top = 0; ///< its top-level window
};

/// A bar as the model keeps it; the model alone changes it.
class cCommandBarInt {
public:
    explicit cCommandBarInt(std::string key) : Key(std::move(key)) {}
    cCommandBarInt(const cCommandBarInt&) = delete;
    cCommandBarInt& operator=(const cCommandBarInt&) = delete;

    /// The button and those beside it up to the nearest separator, or the bar's end, on either side.
    std::vector<cButtonInt*> GroupOf(const cButtonInt& button) const;

    std::string Key;
    std::u16string Title;                 ///< shown in the chevron menu
    KeyedCollection<cButtonInt*> Buttons; ///< by button key, in the order of display; not owned
    KeyedCollection<BarOwner> Owners;     ///< by the control's window
    bool InGroupUpdate = false;           ///< the radio rule is at work on this bar
};

} // namespace quillshift
