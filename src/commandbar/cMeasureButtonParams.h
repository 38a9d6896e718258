#pragma once

#include "base/Geometry.h"
#include "commandbar/BarTypes.h"
#include "platform/Surface.h"

#include <cstddef>
#include <vector>

namespace quillshift {

/// All that the size of an item depends on beside the button itself; lengths in pixels.
struct cMeasureButtonParams {
    WindowId Window = 0;
    FontSpec Font;
    int IconWidth = 16;
    int IconHeight = 16;
    int Height = 0; ///< of the client area; 0 for a row of a menu
    bool RightToLeft = false;
    DisplayMode Mode = DisplayMode::Toolbar;
    quillshift::Orientation Orientation = quillshift::Orientation::Top;
    TextPosition ButtonTextPosition = TextPosition::BesideIcon;
    int Width = 0;

    void FromMeasureButtonParams(const cMeasureButtonParams& other) { *this = other; }

    /// Whether an item measures the same under both; the client's width plays no part in that.
    bool CompareTo(const cMeasureButtonParams& other) const {
        return Window == other.Window && Mode == other.Mode && Orientation == other.Orientation &&
               Height == other.Height && Font == other.Font && IconWidth == other.IconWidth &&
               IconHeight == other.IconHeight && RightToLeft == other.RightToLeft &&
               ButtonTextPosition == other.ButtonTextPosition;
    }
};

/// The sizes that a button was measured with, by what it was measured under.
class MeasureCache {
public:
    /// Null if the button was not measured under these.
    const Size* Find(const cMeasureButtonParams& params) const {
        for (const Measured& measured : measured_)
            if (measured.params.CompareTo(params))
                return &measured.size;
        return nullptr;
    }
    void Add(const cMeasureButtonParams& params, Size size) {
        // Dragging a window's edge gives a new height at each step: the oldest sizes make room.
        if (measured_.size() == kMost)
            measured_.erase(measured_.begin());
        measured_.emplace_back().params.FromMeasureButtonParams(params);
        measured_.back().size = size;
    }
    void Clear() { measured_.clear(); }

private:
    struct Measured {
        cMeasureButtonParams params;
        Size size;
    };
    static constexpr std::size_t kMost = 8;

    std::vector<Measured> measured_;
};

} // namespace quillshift
