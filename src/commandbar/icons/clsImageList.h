#pragma once

#include "commandbar/icons/PlatformImageList.h"
#include "platform/FileSystem.h"
#include "platform/Surface.h"
#include "platform/SystemColours.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillshift {

/// An image by its number, from 1 on, or by its key.
using ImageReference = std::variant<int, std::string_view>;

/// How an image is drawn.
struct ImageDrawing {
    bool selected = false;
    bool cut = false;
    std::optional<Colour> colour = {}; ///< of what is selected or cut; none is the desktop's window colour
    /// The list whose image of the same number is drawn instead.
    std::optional<ImageListHandle> otherList = {};
};

/// A keyed list of icons of one size, loaded from files: what the application fills and bars paint from.
class clsImageList {
public:
    enum class ImageType { Bitmap = 0, Icon = 1, Cursor = 2 };

    /// Whether the three greys that pictures of buttons are drawn in (128, 192 and 223) become the desktop's
    /// shadow, face and light.
    enum class Greys { AsTheyAre, TheDesktops };

    /// Both outlive the list.
    clsImageList(FileSystem& files, const SystemColours& desktop) : files_(files), desktop_(desktop) {}

    // What `Create` makes the list by; a change after it has no effect on the list.
    int IconSizeX = 16; ///< logical pixels
    int IconSizeY = 16;
    int ColourDepth = 0; ///< as the caller told; the images have 32 bits a pixel whatever it says
    int Density = 1;     ///< image pixels per logical pixel: a list for a display of 1.5 takes 2
    const Surface* OwnerHDC = nullptr; ///< what the images are drawn on, if told: gives the density then

    /// Bits per pixel of the display.
    int SystemColourDepth() const { return desktop_.BitsPerPixel(); }

    /// Makes an empty list, in place of the one there was. False if a size is below 1 or above 256 pixels.
    bool Create();
    void Destroy();
    /// The list itself, as bars want it; expired before `Create`.
    ImageListHandle hIml() const { return list_; }

    /// Appends the file's icon of the list's size, or a bitmap's icons, cut from left to right, with the key
    /// for all of them. A file that can't be read gives a blank, so that the others keep their numbers. Does
    /// nothing on a list that was not created.
    void AddFromFile(std::u16string_view fileName, ImageType type = ImageType::Icon,
                     std::string_view key = {}, Greys greys = Greys::AsTheyAre);
    /// The same of an image in straight colours, which stays the caller's; an icon of another size is scaled.
    void AddFromHandle(const cAlphaDIBSection& image, ImageType type = ImageType::Icon,
                       std::string_view key = {});
    void RemoveImage(const ImageReference& image);
    /// Takes all images out.
    void Clear();

    int ImageCount() const { return static_cast<int>(keys_.size()); }
    /// The number, from 1 on. This and whatever takes a reference throws Error 9 (source
    /// "quillshift.qsImageList") for a number or key that isn't there.
    int ItemIndex(const ImageReference& image) const;
    const std::string& ItemKey(const ImageReference& image) const;
    void SetItemKey(const ImageReference& image, std::string key);
    bool KeyExists(std::string_view key) const { return FindKey(key) != 0; }

    /// Draws an image with its top left at `at`; selected or cut it is half in a colour. What another list
    /// hasn't is not drawn.
    void DrawImage(const ImageReference& image, Surface& surface, Point at,
                   const ImageDrawing& flags = {}) const;

private:
    int FindKey(std::string_view key) const;
    std::size_t PlaceOf(const ImageReference& image) const;
    std::optional<cAlphaDIBSection> ReadImage(std::u16string_view fileName, ImageType type) const;
    std::vector<cAlphaDIBSection> ImagesOf(const cAlphaDIBSection& image, ImageType type) const;
    void MapGreys(cAlphaDIBSection& image) const;

    FileSystem& files_;
    const SystemColours& desktop_;
    std::shared_ptr<PlatformImageList> list_;
    std::vector<std::string> keys_; // one for each image; empty for none
};

} // namespace quillshift
