#pragma once

#include <string_view>

namespace quillshift {

/// The progress dialog of a recoding job, as the job sees it. The dialog tells the job of itself.
class DecodingView {
public:
    virtual ~DecodingView() = default;

    virtual void SetWaiting(bool waiting) = 0;
    virtual void SetCode(std::u16string_view pair) = 0;
    virtual void Hide() = 0;
    /// Moves the bar to a percentage, which may lie above 100. Redraws, then runs the pending events:
    /// anything may happen before this returns, also that the dialog is closed.
    virtual void SetProgress(float percentage) = 0;
};

} // namespace quillshift
