#pragma once

#include "base/Error.h"
#include "base/Texts.h"

#include <string_view>
#include <utility>

namespace quillshift {

enum class BoxIcon { None, Information, Exclamation, Question, Critical };
enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

/// The one form in which the program speaks in boxes: modal, under its own title.
class MessageBox {
public:
    virtual ~MessageBox() = default;

    /// Tells something and waits until it is read.
    void Inform(std::u16string_view text, BoxIcon icon = BoxIcon::Information) {
        Show(icon, BoxButtons::Ok, text);
    }
    void Warn(std::u16string_view text) { Show(BoxIcon::Exclamation, BoxButtons::Ok, text); }
    /// A question closed without a button, by Escape or its close box, answers Cancel, also where no such
    /// button is shown.
    BoxAnswer Ask(std::u16string_view text, BoxButtons buttons = BoxButtons::YesNo) {
        return Show(BoxIcon::Question, buttons, text);
    }
    /// Tells of a failure, with its number.
    void Report(const Error& error) {
        Show(BoxIcon::Critical, BoxButtons::Ok, FailureText(error.Number(), error.Description()));
    }

    /// Runs something, and reports the failure that it ends in.
    template <typename Routine>
    void Attempt(Routine&& routine) {
        try {
            std::forward<Routine>(routine)();
        } catch (const Error& error) {
            Report(error);
        }
    }

private:
    /// Shows a modal box under the program's title and waits for the answer.
    virtual BoxAnswer Show(BoxIcon icon, BoxButtons buttons, std::u16string_view text) = 0;
};

} // namespace quillshift
