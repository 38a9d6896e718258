#pragma once

#include "base/Twips.h"

#include <string_view>

namespace quillshift {

enum class WindowState { Normal, Minimised, Maximised };
enum class Pointer { Default, Wait };

/// What the logic asks of a top-level window.
class Window {
public:
    virtual ~Window() = default;

    virtual void Show() = 0;
    /// Takes the window off the screen. Shown again it is as it was, and has the keyboard.
    virtual void Hide() = 0;
    virtual void SetTitle(std::u16string_view title) = 0;
    /// Places the window above all others, or takes that place away. Position and size stay.
    virtual void SetTopMost(bool topMost) = 0;
    virtual void SetPointer(Pointer pointer) = 0;

    virtual WindowState State() const = 0;
    virtual void SetState(WindowState state) = 0;

    /// Place and outer size as they are now.
    virtual TwipsRect Bounds() const = 0;
    /// Place and outer size that a maximised or minimised window returns to.
    virtual TwipsRect RestoredBounds() const = 0;
    virtual void SetBounds(const TwipsRect& bounds) = 0;
};

} // namespace quillshift
