#pragma once

#include "base/Twips.h"

#include <vector>

namespace quillshift {

class Screen {
public:
    virtual ~Screen() = default;

    /// Size of the primary screen.
    virtual TwipsRect Primary() const = 0;
    /// The work areas of all monitors (panels of the desktop left out), the primary one first.
    virtual std::vector<TwipsRect> WorkAreas() const = 0;
};

} // namespace quillshift
