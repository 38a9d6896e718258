#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quillshift {

/// The desktop's clipboard, text only.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// Empty when the clipboard holds no text.
    virtual std::u16string Text() = 0;
    virtual void SetText(std::u16string_view text) = 0;
    virtual void Clear() = 0;

    /// Whatever is on the clipboard has changed, by this program or another.
    std::function<void()> OnChange;
};

} // namespace quillshift
