#pragma once

#include <memory>
#include <string_view>

namespace quillshift {

/// The window of one running job: modal, with a bar and a way to stop. It shows itself only for a job that
/// has run for half a second, and is gone with this object.
class ProgressWindow {
public:
    virtual ~ProgressWindow() = default;

    /// Whether it is time for a `Step`: first when the window is to appear, then several times a second.
    /// Costs next to nothing.
    virtual bool IsDue() const = 0;
    /// Shows the window at what is done, from 0 to 1, and runs the pending events: whatever has no window of
    /// its own may happen before this returns. False: the user wants the job to stop.
    virtual bool Step(double done) = 0;
};

class Progress {
public:
    virtual ~Progress() = default;

    /// A job begins. `what` says in the window what is being done.
    virtual std::unique_ptr<ProgressWindow> Begin(std::u16string_view what) = 0;
};

} // namespace quillshift
