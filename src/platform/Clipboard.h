#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

struct CopiedText {
    std::u16string text;
    bool whole = true;     ///< else `text` is only the beginning of one that is too long
    bool repaired = false; ///< somebody has seen to it that it is readable, and says so
};

/// The desktop's clipboard, text only.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// Empty when the clipboard holds no text. The program that has it is given half a second from when it
    /// was asked; meanwhile events are handled, but those of the user stay for later. Nothing, and
    /// `OnNoAnswer`, when its text is not there then or is too long.
    virtual std::optional<std::u16string> Text() = 0;
    /// The text as far as it has come without waiting; nothing before all of it is there.
    virtual std::optional<CopiedText> Arrived() = 0;
    /// Whether somebody is waiting for another program now, who counts on the document as it is.
    virtual bool IsWaiting() const = 0;
    /// Whether it holds text, as far as is known without waiting; a program that has not answered yet may.
    virtual bool HasText() const = 0;
    virtual void SetText(std::u16string_view text) = 0;
    /// As `SetText`, with the mark that the text is readable now.
    virtual void SetRepaired(std::u16string_view text) = 0;
    virtual void Clear() = 0;
    /// Gives the program's own text to the desktop's clipboard manager, where there is one, so that it
    /// outlives the program. Waits as `Text` does, as long as the manager goes on asking, two seconds at
    /// most.
    virtual void HandOver() = 0;

    /// The clipboard has changed, by this program or another, or what is on it has come to be known.
    std::function<void()> OnChange;
    /// Another program has not given the text that the user wanted from it.
    std::function<void()> OnNoAnswer;
};

} // namespace quillshift
