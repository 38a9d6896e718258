#include "commandbar/icons/cCommandBarImageList.h"

#include "base/Error.h"

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

constexpr int kGrowStep = 10;

// A colour that no picture has, with which the ground shows through where a control painted nothing.
constexpr Colour kKeyColour = Rgb(1, 2, 1);

std::optional<cAlphaDIBSection> PaintedBy(const ImageControl& control, int iconIndex, Size size) {
    cAlphaDIBSection image;
    if (!image.Create(size.width, size.height))
        return std::nullopt;
    image.ForEachPixel([](std::uint8_t* pixel) {
        pixel[0] = kKeyColour.Blue();
        pixel[1] = kKeyColour.Green();
        pixel[2] = kKeyColour.Red();
    });
    try {
        control.DrawListImage(iconIndex, image);
    } catch (const Error&) {
        return std::nullopt;
    }
    image.ForEachPixel(
        [](std::uint8_t* pixel) { pixel[3] = Rgb(pixel[2], pixel[1], pixel[0]) == kKeyColour ? 0 : 255; });
    return image;
}

int CutDown(int wanted, int full) {
    return wanted < 0 ? full : std::min(wanted, full);
}

} // namespace

void cCommandBarImageList::DrawStrip(Surface& surface, int x, int y) const {
    surface.Composite(RectAt(x, y, capacity_ * size_.width, size_.height), strip_.hDib(),
                      RectAt(0, 0, strip_.Width(), strip_.Height()));
}

void cCommandBarImageList::SetDisabledColor(Colour colour) {
    if (std::exchange(disabled_, colour) != colour)
        RenderAll(IconMode::Disabled);
}

void cCommandBarImageList::SetHighlightColor(Colour colour) {
    if (std::exchange(highlight_, colour) != colour)
        RenderAll(IconMode::Highlighted);
}

int cCommandBarImageList::IconIndexOf(int entry) const {
    return entry >= 1 && entry <= count() ? entries_[static_cast<std::size_t>(entry - 1)].iconIndex : -1;
}

int cCommandBarImageList::IndexOf(int iconIndex, IconMode mode) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.iconIndex == iconIndex && entry.mode == mode;
    });
    return found == entries_.end() ? 0 : static_cast<int>(found - entries_.begin()) + 1;
}

void cCommandBarImageList::Draw(Surface& surface, int iconIndex, IconMode mode, int x, int y, int width,
                                int height) {
    const int shownWidth = CutDown(width, size_.width);
    const int shownHeight = CutDown(height, size_.height);
    const Rect target = RectAt(x, y, shownWidth, shownHeight);
    if (target.IsEmpty())
        return;
    const Rect part = RectAt(0, 0, shownWidth * density_, shownHeight * density_);
    if (mode != IconMode::Source) {
        const Entry& entry = FindOrMake(iconIndex, mode);
        surface.Composite(target, strip_.hDib(), part.MovedBy(entry.x, 0));
    } else if (const auto* list = std::get_if<ImageListHandle>(&source_)) {
        const auto icons = list->lock();
        if (const IconImage* icon = icons ? icons->Find(iconIndex) : nullptr)
            surface.Composite(target, icon->composite.hDib(), part);
    } else if (auto icon = Fetch(iconIndex)) {
        icon->PreMultiplyAlpha();
        surface.Composite(target, icon->hDib(), part);
    }
}

void cCommandBarImageList::InitialiseFromInstance(const cCommandBarImageList& other) {
    Destroy();
    source_ = other.source_;
    size_ = other.size_;
    density_ = other.density_;
}

void cCommandBarImageList::InitialiseFromVariant(const ImageListHandle& list) {
    Destroy();
    source_ = list;
    const auto icons = list.lock();
    size_ = icons ? icons->size : Size{};
    density_ = icons ? icons->density : 1;
}

void cCommandBarImageList::InitialiseFromVariant(const ImageControl& control) {
    Destroy();
    source_ = &control;
    size_ = {control.ImageWidth(), control.ImageHeight()};
    density_ = 1;
}

void cCommandBarImageList::Destroy() {
    strip_.ClearUp();
    entries_.clear();
    capacity_ = 0;
}

// The source's image, in straight colours.
std::optional<cAlphaDIBSection> cCommandBarImageList::Fetch(int iconIndex) const {
    if (const auto* control = std::get_if<const ImageControl*>(&source_))
        return PaintedBy(**control, iconIndex, size_);
    const auto icons = std::get<ImageListHandle>(source_).lock();
    const IconImage* icon = icons ? icons->Find(iconIndex) : nullptr;
    return icon != nullptr ? std::optional(icon->straight) : std::nullopt;
}

const cCommandBarImageList::Entry& cCommandBarImageList::FindOrMake(int iconIndex, IconMode mode) {
    if (const int index = IndexOf(iconIndex, mode))
        return entries_[static_cast<std::size_t>(index - 1)];
    if (count() + 2 > capacity_)
        Grow();
    const Entry& entry = entries_.emplace_back(Entry{iconIndex, count() * PixelSize().width, mode});
    Render(entry);
    return entry;
}

void cCommandBarImageList::Grow() {
    const cAlphaDIBSection old = std::exchange(strip_, {});
    capacity_ += kGrowStep;
    strip_.Create(capacity_ * PixelSize().width, PixelSize().height);
    strip_.LoadPictureBlt(old.hDib());
}

// An icon that can't be had leaves its place in the strip empty.
void cCommandBarImageList::Render(const Entry& entry) {
    auto image = Fetch(entry.iconIndex);
    if (image) {
        DeriveIcon(*image, entry.mode, disabled_, highlight_);
    } else {
        image.emplace();
        image->Create(PixelSize().width, PixelSize().height);
    }
    image->PaintPicture(strip_, entry.x, 0);
}

void cCommandBarImageList::RenderAll(IconMode mode) {
    for (const Entry& entry : entries_)
        if (entry.mode == mode)
            Render(entry);
}

} // namespace quillshift
