#pragma once

#include "base/Geometry.h"
#include "platform/Surface.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quillshift {

/// One tab of a strip, as the strip keeps it.
struct TabItem {
    std::u16string text;
    int image = -1;        ///< counted from 0; -1 for none
    std::int32_t data = 0; ///< the owner's own
    bool hot = false;      ///< highlighted

    bool operator==(const TabItem&) const = default;
};

enum class TabAlign { Top, Left, Bottom, Right };

/// What a strip is made with.
struct TabStyles {
    bool hotTrack = false;
    bool buttons = false;
    bool flatButtons = false; ///< with `buttons` only
    bool multiLine = false;
    bool ownerDraw = false;
    TabAlign align = TabAlign::Top;

    bool operator==(const TabStyles&) const = default;
};

/// A row of tabs of the window system, one of them selected or none. Positions count from 0. What the owner
/// does raises no notice; what a person does raises all that are here.
class TabStrip {
public:
    virtual ~TabStrip() = default;

    /// Makes the strip anew, without tabs, in the size that it had.
    virtual void Create(const TabStyles& styles) = 0;
    virtual void SetFlatSeparators(bool on) = 0;
    virtual void SetFont(const FontSpec& font) = 0;
    /// The space about a tab's text.
    virtual void SetPadding(int x, int y) = 0;

    /// The position that the tab took, or -1.
    virtual int Insert(int position, const TabItem& item) = 0;
    /// A selected tab leaves no selection behind. False where there is no such tab.
    virtual bool Remove(int position) = 0;
    virtual void RemoveAll() = 0;
    virtual int Count() const = 0;
    virtual std::optional<TabItem> Item(int position) const = 0;
    virtual bool SetItem(int position, const TabItem& item) = 0;

    /// -1 for none.
    virtual int Selection() const = 0;
    /// Answers the selection before, -1 for none.
    virtual int Select(int position) = 0;

    /// The strip's whole place in the dialog, and what the tabs leave of it; logical pixels.
    virtual Rect Place() const = 0;
    virtual Rect PageArea() const = 0;

    std::function<bool()> OnChanging; ///< false: the selection stays
    std::function<void()> OnChanged;
    std::function<void()> OnRightClick;
    /// Draws a tab; answers false where the strip is to draw it itself.
    std::function<bool(int position, Surface& surface, const Rect& place, bool selected)> OnDraw;
    /// The size that a drawn tab is to have; nothing for the strip's own.
    std::function<std::optional<Size>(int position, Size own)> OnMeasure;
};

} // namespace quillshift
