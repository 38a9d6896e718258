#pragma once

#include "platform/MessageBox.h"
#include "platform/TextSurface.h"

#include <string>
#include <string_view>

namespace quillshift {

/// Moves the caret to the start of a numbered line, as the lines are laid out.
class GoToLine {
public:
    GoToLine(TextSurface& document, MessageBox& messageBox) : document_(document), messageBox_(messageBox) {}

    /// `text`: the number of a line, 1 being the first, with a decimal comma or point if it likes. Half a
    /// line is rounded to the even one of the lines counted from 0; 0 is the caret's own line, and so is,
    /// after a notice, no text. False: there is no such line, or that is no number, which was told; nothing
    /// moved.
    bool Go(std::u16string_view text);
    /// The numbers that there are, as "1–25".
    std::u16string Range() const;

private:
    TextSurface& document_;
    MessageBox& messageBox_;
};

} // namespace quillshift
