#pragma once

#include "base/Colour.h"
#include "commandbar/icons/IconMode.h"
#include "commandbar/icons/PlatformImageList.h"
#include "platform/Surface.h"

#include <optional>
#include <variant>
#include <vector>

namespace quillshift {

/// A control that keeps pictures for others and can only paint them.
class ImageControl {
public:
    virtual ~ImageControl() = default;
    virtual int ImageWidth() const = 0;
    virtual int ImageHeight() const = 0;
    /// Paints picture `index` (from 0 on) at the top left; what it leaves as it is counts as transparent. May
    /// throw an Error: the icon is blank then.
    virtual void DrawListImage(int index, DibSection& target) const = 0;
};

/// What a bar paints its icons from: refers to a list of icons and keeps a strip of the looks derived from
/// them, each made once, when first painted. Icons are counted from 0.
class cCommandBarImageList final : public BarIcons {
public:
    /// Logical pixels; 0 before a source is set.
    int IconWidth() const { return size_.width; }
    int IconHeight() const { return size_.height; }
    /// Paints all derived images, in the order in which they were made.
    void DrawStrip(Surface& surface, int x, int y) const;

    Colour DisabledColor() const { return disabled_; }
    Colour HighlightColor() const { return highlight_; }
    /// A new colour makes the images that have it anew, in their places.
    void SetDisabledColor(Colour colour);
    void SetHighlightColor(Colour colour);

    /// How many derived images there are.
    int count() const { return static_cast<int>(entries_.size()); }
    /// The icon that derived image `entry` (from 1 on) was made of; -1 if there is no such entry.
    int IconIndexOf(int entry) const;
    /// The derived image (from 1 on) of an icon in a mode; 0 if it was not made yet.
    int IndexOf(int iconIndex, IconMode mode) const;

    /// Paints an icon with its top left at (x, y). A width or height below 0 means the icon's; of a smaller
    /// one the icon's left or top is shown. An icon that isn't there paints nothing.
    void Draw(Surface& surface, int iconIndex, IconMode mode, int x, int y, int width = -1, int height = -1);

    Size IconSize() const override { return size_; }
    void Draw(Surface& surface, int index, IconMode mode, Point at) override {
        Draw(surface, index, mode, at.x, at.y);
    }

    /// Takes over the other's source and size, but none of its derived images and colours.
    void InitialiseFromInstance(const cCommandBarImageList& other);
    /// Sets the source, which is not owned. Once a list is gone its icons paint nothing; a control outlives
    /// its use here.
    void InitialiseFromVariant(const ImageListHandle& list);
    void InitialiseFromVariant(const ImageControl& control);
    /// Lets the derived images go; the source stays.
    void Destroy();

private:
    struct Entry {
        int iconIndex;
        int x; // in the strip, in its pixels
        IconMode mode;
    };

    Size PixelSize() const { return {size_.width * density_, size_.height * density_}; }
    std::optional<cAlphaDIBSection> Fetch(int iconIndex) const;
    const Entry& FindOrMake(int iconIndex, IconMode mode);
    void Grow();
    void Render(const Entry& entry);
    void RenderAll(IconMode mode);

    std::variant<ImageListHandle, const ImageControl*> source_;
    Size size_;
    int density_ = 1;
    Colour disabled_;
    Colour highlight_;
    int capacity_ = 0;
    cAlphaDIBSection strip_;
    std::vector<Entry> entries_;
};

} // namespace quillshift
