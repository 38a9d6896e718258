#pragma once

#include "base/Geometry.h"
#include "platform/WindowId.h"

namespace quillshift {

/// A control of the host, such as a list of choices, that stands on a bar as one of its items.
class PanelControl {
public:
    virtual ~PanelControl() = default;

    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    /// Window of the bar control that holds it.
    virtual WindowId Container() const = 0;
    virtual void SetContainer(WindowId control) = 0;
    /// Pixels; a bar leaves it as it is.
    virtual int Height() const = 0;
    /// Pixels that it can't do without; 0 where any width will do.
    virtual int LeastWidth() const = 0;
    /// Places it in client pixels of its container.
    virtual void Move(const Rect& area) = 0;
};

} // namespace quillshift
