#include "commandbar/icons/clsImageList.h"

#include "base/Error.h"
#include "commandbar/icons/DibReader.h"
#include "commandbar/icons/IcoFile.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillshift {
namespace {

constexpr int kLargestSide = 256;

// The images of a strip, which has one pixel to the logical one.
std::vector<cAlphaDIBSection> CutStrip(const cAlphaDIBSection& strip, Size size) {
    std::vector<cAlphaDIBSection> images;
    for (int x = 0; x + size.width <= strip.Width(); x += size.width) {
        cAlphaDIBSection image;
        image.Create(size.width, size.height);
        image.LoadPictureBlt(strip.hDib(), x, 0);
        images.push_back(std::move(image));
    }
    return images;
}

cAlphaDIBSection Blended(cAlphaDIBSection image, Colour blend) {
    image.ForEachPixel([blend](std::uint8_t* pixel) {
        pixel[0] = static_cast<std::uint8_t>((pixel[0] + blend.Blue()) / 2);
        pixel[1] = static_cast<std::uint8_t>((pixel[1] + blend.Green()) / 2);
        pixel[2] = static_cast<std::uint8_t>((pixel[2] + blend.Red()) / 2);
    });
    image.PreMultiplyAlpha();
    return image;
}

} // namespace

bool clsImageList::Create() {
    Destroy();
    if (OwnerHDC != nullptr)
        Density = static_cast<int>(std::ceil(OwnerHDC->Density()));
    const auto isPossible = [this](int side) {
        return side >= 1 && side <= kLargestSide && Density >= 1 && Density <= kLargestSide / side;
    };
    if (!isPossible(IconSizeX) || !isPossible(IconSizeY))
        return false;
    list_ = std::make_shared<PlatformImageList>();
    list_->size = {IconSizeX, IconSizeY};
    list_->density = Density;
    return true;
}

void clsImageList::Destroy() {
    list_.reset();
    keys_.clear();
}

void clsImageList::AddFromFile(std::u16string_view fileName, ImageType type, std::string_view key,
                               Greys greys) {
    if (!list_)
        return;
    auto image = ReadImage(fileName, type);
    if (image && greys == Greys::TheDesktops)
        MapGreys(*image);
    AddFromHandle(image ? *image : cAlphaDIBSection(), type, key);
}

void clsImageList::AddFromHandle(const cAlphaDIBSection& image, ImageType type, std::string_view key) {
    if (!list_)
        return;
    std::vector<cAlphaDIBSection> images = ImagesOf(image, type);
    if (images.empty()) {
        images.emplace_back();
        images.back().Create(list_->PixelSize().width, list_->PixelSize().height);
    }
    for (cAlphaDIBSection& one : images) {
        list_->images.emplace_back(std::move(one));
        keys_.emplace_back(key);
    }
}

std::optional<cAlphaDIBSection> clsImageList::ReadImage(std::u16string_view fileName, ImageType type) const {
    const FileContents file = files_.Read(fileName);
    return type == ImageType::Bitmap ? ReadBitmap(file.bytes) : ReadIcon(file.bytes, list_->PixelSize());
}

std::vector<cAlphaDIBSection> clsImageList::ImagesOf(const cAlphaDIBSection& image, ImageType type) const {
    if (image.IsEmpty())
        return {};
    if (type != ImageType::Bitmap)
        return {ScaledIcon(image, list_->PixelSize())};
    std::vector<cAlphaDIBSection> images = CutStrip(image, list_->size);
    for (cAlphaDIBSection& one : images)
        one = ScaledIcon(one, list_->PixelSize());
    return images;
}

void clsImageList::MapGreys(cAlphaDIBSection& image) const {
    constexpr std::pair<std::uint8_t, SystemColour> kGreys[] = {
        {128, SystemColour::ButtonShadow}, {192, SystemColour::ButtonFace}, {223, SystemColour::Light3D}};
    image.ForEachPixel([&](std::uint8_t* pixel) {
        for (const auto& [level, name] : kGreys)
            if (pixel[0] == level && pixel[1] == level && pixel[2] == level) {
                const Colour colour = desktop_.Of(name);
                pixel[0] = colour.Blue();
                pixel[1] = colour.Green();
                pixel[2] = colour.Red();
                break;
            }
    });
}

void clsImageList::RemoveImage(const ImageReference& image) {
    const auto place = static_cast<std::ptrdiff_t>(PlaceOf(image));
    list_->images.erase(list_->images.begin() + place);
    keys_.erase(keys_.begin() + place);
}

void clsImageList::Clear() {
    if (list_)
        list_->images.clear();
    keys_.clear();
}

int clsImageList::FindKey(std::string_view key) const {
    const auto found = std::find(keys_.begin(), keys_.end(), key);
    return key.empty() || found == keys_.end() ? 0 : static_cast<int>(found - keys_.begin()) + 1;
}

int clsImageList::ItemIndex(const ImageReference& image) const {
    const int* number = std::get_if<int>(&image);
    const int index = number != nullptr ? *number : FindKey(std::get<std::string_view>(image));
    if (index < 1 || index > ImageCount())
        throw Error(9, u"quillshift.qsImageList", u"Subscript out of range");
    return index;
}

std::size_t clsImageList::PlaceOf(const ImageReference& image) const {
    return static_cast<std::size_t>(ItemIndex(image) - 1);
}

const std::string& clsImageList::ItemKey(const ImageReference& image) const {
    return keys_[PlaceOf(image)];
}

void clsImageList::SetItemKey(const ImageReference& image, std::string key) {
    keys_[PlaceOf(image)] = std::move(key);
}

void clsImageList::DrawImage(const ImageReference& image, Surface& surface, Point at,
                             const ImageDrawing& flags) const {
    const int index = ItemIndex(image) - 1;
    const std::shared_ptr<const PlatformImageList> list = flags.otherList ? flags.otherList->lock() : list_;
    const IconImage* const icon = list ? list->Find(index) : nullptr;
    if (icon == nullptr)
        return;
    const Size pixels = list->PixelSize();
    const Rect target = RectAt(at.x, at.y, list->size.width, list->size.height);
    const Rect whole = RectAt(0, 0, pixels.width, pixels.height);
    if (!flags.selected && !flags.cut) {
        surface.Composite(target, icon->composite.hDib(), whole);
        return;
    }
    const Colour blend = flags.colour.value_or(desktop_.Of(SystemColour::Window));
    surface.Composite(target, Blended(icon->straight, blend).hDib(), whole);
}

} // namespace quillshift
