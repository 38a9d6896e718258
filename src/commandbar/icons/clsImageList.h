#pragma once

#include "commandbar/icons/PlatformImageList.h"
#include "platform/FileSystem.h"
#include "platform/Surface.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillshift {

/// An image by its number, from 1 on, or by its key.
using ImageReference = std::variant<int, std::string_view>;

/// A keyed list of icons of one size, loaded from files: what the application fills and bars paint from.
class clsImageList {
public:
    enum class ImageType { Bitmap = 0, Icon = 1, Cursor = 2 };

    /// `files` outlives the list.
    explicit clsImageList(FileSystem& files) : files_(files) {}

    // What `Create` makes the list by; a change after it has no effect on the list.
    int IconSizeX = 16; ///< logical pixels
    int IconSizeY = 16;
    int ColourDepth = 0; ///< as the caller told; the images have 32 bits a pixel whatever it says
    int Density = 1;     ///< image pixels per logical pixel: a list for a display of 1.5 takes 2

    /// Makes an empty list, in place of the one there was. False if a size is below 1 or above 256 pixels.
    bool Create();
    void Destroy();
    /// The list itself, as bars want it; expired before `Create`.
    ImageListHandle hIml() const { return list_; }

    /// Appends the file's icon of the list's size, or a bitmap's icons, cut from left to right, with the key
    /// for all of them. A file that can't be read gives a blank, so that the others keep their numbers. Does
    /// nothing on a list that was not created.
    void AddFromFile(std::u16string_view fileName, ImageType type = ImageType::Icon,
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

    /// Draws an image with its top left at `at`. With `blend`, as selected or cut: half in that colour.
    void DrawImage(const ImageReference& image, Surface& surface, Point at,
                   std::optional<Colour> blend = std::nullopt) const;

private:
    int FindKey(std::string_view key) const;
    std::size_t PlaceOf(const ImageReference& image) const;
    std::vector<cAlphaDIBSection> ReadImages(std::u16string_view fileName, ImageType type) const;

    FileSystem& files_;
    std::shared_ptr<PlatformImageList> list_;
    std::vector<std::string> keys_; // one for each image; empty for none
};

} // namespace quillshift
