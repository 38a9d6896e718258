#pragma once

#include <string_view>

namespace quillshift {

enum class BoxIcon { None, Information, Question, Critical };
enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

class MessageBox {
public:
    virtual ~MessageBox() = default;

    /// Shows a modal box and waits for the answer. A question closed without a button, by Escape or its close
    /// box, answers Cancel, also where no such button is shown.
    virtual BoxAnswer Show(BoxIcon icon, BoxButtons buttons, std::u16string_view title,
                           std::u16string_view text) = 0;
};

} // namespace quillshift
