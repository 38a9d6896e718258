#pragma once

#include <string_view>

namespace quillshift {

/// The progress dialog of a recoding job, as the job sees it.
class DecodingView {
public:
    virtual ~DecodingView() = default;

    virtual bool IsCreated() const = 0;
    /// Makes the dialog, with `path` in its field for the file. Plays its load sound.
    virtual void Create(std::u16string_view path) = 0;
    /// Closes and destroys the dialog, which plays its unload sound; nothing happens without one.
    virtual void Destroy() = 0;
    virtual void SetWaiting(bool waiting) = 0;
    virtual void SetCode(std::u16string_view pair) = 0;
    virtual void Show() = 0;
    virtual void Hide() = 0;
    /// Moves the bar to a percentage, which may lie above 100. Redraws, then runs the pending events:
    /// anything may happen before this returns.
    virtual void SetProgress(float percentage) = 0;
};

} // namespace quillshift
