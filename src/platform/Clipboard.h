#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

/// The desktop's clipboard, text only.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// Empty when the clipboard holds no text; nothing when the program that has it does not answer in time,
    /// which is a second at most.
    virtual std::optional<std::u16string> Text() = 0;
    /// Whether it holds text, as far as is known without waiting.
    virtual bool HasText() const = 0;
    virtual void SetText(std::u16string_view text) = 0;
    virtual void Clear() = 0;

    /// Whatever is on the clipboard has changed, by this program or another, and is known.
    std::function<void()> OnChange;
};

} // namespace quillshift
