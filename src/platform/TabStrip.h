#pragma once

#include "base/Geometry.h"
#include "platform/Surface.h"
#include "platform/SystemColours.h"

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

constexpr bool IsAtSide(TabAlign align) {
    return align == TabAlign::Left || align == TabAlign::Right;
}

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

/// The pictures that tabs show by their numbers, all of one size.
struct TabImages {
    Size size;
    std::function<void(int image, Surface& surface, Point at)> draw; ///< null: there are none
};

/// What a strip asks and tells its owner. Positions count from 0, places are the strip's.
struct TabNotices {
    std::function<bool()> changing; ///< false: the selection stays
    std::function<void()> changed;
    std::function<void()> rightClick;
    /// Draws a tab of a strip with `ownerDraw`.
    std::function<void(int position, Surface& surface, const Rect& place, bool selected)> draw;
    /// The size that such a tab is to have; nothing for the strip's own.
    std::function<std::optional<Size>(int position, Size own)> measure;
    std::function<void(Surface& surface)> painted; ///< the tabs are drawn: draws what lies over them
    std::function<void(Surface& surface, const Rect& page)> erasePage; ///< draws the page area's ground
};

/// Tabs of the window system in a row or several, one of them selected or none. What the owner does raises no
/// notice; what a person does raises all that there are.
class TabStrip {
public:
    virtual ~TabStrip() = default;

    /// Makes the strip anew, without tabs and pictures, in the size that it had.
    virtual void Create(const TabStyles& styles) = 0;
    /// A line between flat buttons.
    virtual void SetFlatSeparators(bool on) = 0;
    virtual void SetFont(const FontSpec& font) = 0;
    /// The space about a tab's text.
    virtual void SetPadding(int x, int y) = 0;
    virtual void SetImages(const TabImages& images) = 0;
    virtual void Repaint() = 0;

    /// The position that the tab took, or -1.
    virtual int Insert(int position, const TabItem& item) = 0;
    /// A selected tab leaves no selection behind. False where there is no such tab.
    virtual bool Remove(int position) = 0;
    virtual void RemoveAll() = 0;
    virtual int Count() const = 0;
    virtual std::optional<TabItem> Item(int position) const = 0;
    virtual bool SetItem(int position, const TabItem& item) = 0;
    /// Where a tab is in the strip.
    virtual Rect ItemPlace(int position) const = 0;

    /// -1 for none.
    virtual int Selection() const = 0;
    /// Answers the selection before, -1 for none.
    virtual int Select(int position) = 0;

    /// What the tabs leave of the strip's place in the dialog, in logical pixels.
    virtual Rect PageArea() const = 0;
    virtual Colour ColourOf(SystemColour name) const = 0;

    TabNotices Notices;
};

} // namespace quillshift
