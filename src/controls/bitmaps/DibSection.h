#pragma once

#include "controls/bitmaps/Hls.h"
#include "platform/Surface.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace quillshift {

struct Block;

/// How a block copy joins the source's bytes to the target's.
enum class RasterOperation { Copy, And, Or, Xor };

/// Pixels that belong to whoever holds them; layout as in `PixelView`.
struct BitmapPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> bits;

    PixelView View() const { return {bits.data(), width, height}; }
};

/// What the two bitmap classes have in common: a bitmap of 32 bits a pixel whose bytes the program works on
/// in place. Bitmaps are copied from and on to each other; on to a `Surface` one goes by `Surface::Composite`
/// of its `hDib`.
///
/// Places in block copies count from the top left, whatever the order of the lines in memory. What a copy
/// would reach outside either bitmap is left out. An empty bitmap paints nothing and is not painted on.
class DibSection {
public:
    /// Makes an empty picture, all bytes 0, of at least one pixel. False, and the bitmap is empty, if the
    /// pixels can't be had.
    bool Create(int width, int height);
    /// Takes on a size and makes the pixels for it, all bytes 0, which the caller then owns. False if they
    /// can't be had.
    bool CreateDIB(int width, int height, BitmapPicture& dib);
    /// A copy of a picture or of another bitmap's pixels.
    bool CreateFromPicture(const BitmapPicture& picture) { return CreateFromHBitmap(picture.View()); }
    bool CreateFromHBitmap(const PixelView& bitmap);
    /// Lets the pixels go. `Width` and `Height` stay as they were.
    void ClearUp();

    bool IsEmpty() const { return bits_.empty(); }
    int Width() const { return width_; }
    int Height() const { return height_; }
    int BytesPerScanLine() const { return width_ * 4; }
    /// The pixels: blue, green, red, alpha; lines bottom up without a gap. Null when empty.
    std::uint8_t* DIBSectionBitsPtr() { return IsEmpty() ? nullptr : bits_.data(); }
    const std::uint8_t* DIBSectionBitsPtr() const { return IsEmpty() ? nullptr : bits_.data(); }
    /// The bitmap, to copy from; without bits when empty. Valid until it is made anew or cleared.
    PixelView hDib() const;
    /// What others paint on; null when empty.
    DibSection* hdc() { return IsEmpty() ? nullptr : this; }
    /// Whether `PaintPicture` draws the picture as such, which knows no raster operation, and doesn't copy a
    /// block. Lasts until `ClearUp`.
    bool UseDrawDib() const { return useDrawDib_; }
    void SetUseDrawDib(bool on) { useDrawDib_ = on; }

    /// Copies from (x, y) of `source` to the bitmap's top left. A width or height below 0 means the bitmap's.
    void LoadPictureBlt(const PixelView& source, int x = 0, int y = 0, int width = -1, int height = -1,
                        RasterOperation operation = RasterOperation::Copy);
    /// Copies on to another bitmap at (x, y). A width or height below 0 means this bitmap's.
    void PaintPicture(DibSection& target, int x, int y, int width = -1, int height = -1, int sourceX = 0,
                      int sourceY = 0, RasterOperation operation = RasterOperation::Copy) const;
    /// As `PaintPicture`, blending by `constantAlpha` and, with `perPixel`, by the alpha of each pixel, whose
    /// colours are then taken as premultiplied.
    void AlphaPaintPicture(DibSection& target, int x, int y, int width = -1, int height = -1, int sourceX = 0,
                           int sourceY = 0, std::uint8_t constantAlpha = 255, bool perPixel = true) const;

    /// Writes a BMP file. False if there is nothing to write or not all of it could be written. Throws Error
    /// 17 (source "quillshift.cDIBSection") if the file can't be created.
    bool SavePicture(std::u16string_view fileName) const;

    /// Gives each pixel a random alpha and random premultiplied colours; with `grey` the three are the same.
    void RandomiseBits(bool grey);

    /// Calls `change(the pixel's four bytes)` for each pixel, in the order of memory.
    template <class Change>
    void ForEachPixel(Change change) {
        for (std::size_t at = 0; at < bits_.size(); at += 4)
            change(&bits_[at]);
    }

protected:
    /// The pixels, moved out; the bitmap is empty afterwards and its size 0.
    BitmapPicture Release();
    /// The picture at another size, bilinear, with alpha 0; a plain copy if the size is the same.
    DibSection Resampled(int newHeight, int newWidth) const;

    /// Replaces the colour of each pixel by `change(colour)`; alpha stays.
    template <class Change>
    void ForEachColour(Change change) {
        ForEachPixel([&](std::uint8_t* pixel) {
            const Colour colour = ToRgb(change(ToHls(Rgb(pixel[2], pixel[1], pixel[0]))));
            pixel[0] = colour.Blue();
            pixel[1] = colour.Green();
            pixel[2] = colour.Red();
        });
    }

private:
    void CopyBlock(const PixelView& source, const Block& block, RasterOperation operation);

    int width_ = 0;
    int height_ = 0;
    bool useDrawDib_ = false;
    std::vector<std::uint8_t> bits_;
};

} // namespace quillshift
