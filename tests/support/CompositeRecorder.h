#pragma once

#include "support/Pixels.h"
#include "support/RecordingSurface.h"

#include <utility>
#include <vector>

namespace quillshift {

/// A surface that remembers the pixels that were composited on to it.
class CompositeRecorder final : public RecordingSurface {
public:
    struct Call {
        Rect target;
        Rect part;
        std::vector<Pixel> pixels; ///< of the part, line by line from the top
    };
    std::vector<Call> calls;

    /// What was painted by the one call there was since the last look.
    Call Take() {
        Call call = calls.size() == 1 ? calls.front() : Call{};
        calls.clear();
        return call;
    }

    void Composite(const Rect& target, const PixelView& source, const Rect& part, std::uint8_t) override {
        Call call{target, part, {}};
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x)
                call.pixels.push_back(PixelOf(source, x, y));
        calls.push_back(std::move(call));
    }
};

} // namespace quillshift
