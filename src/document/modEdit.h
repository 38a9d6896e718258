#pragma once

#include "document/DocumentState.h"
#include "document/UndoHistory.h"
#include "platform/Clipboard.h"
#include "platform/MessageBox.h"
#include "platform/TextSurface.h"

#include <string>
#include <string_view>

namespace quillshift {

enum class LetterCase { Upper, Lower };

/// The commands that change the text without leaving the main window.
class modEdit {
public:
    struct Services {
        TextSurface& document;
        Clipboard& clipboard;
        MessageBox& messageBox;
        DocumentState& state;
        UndoHistory& history;
    };

    explicit modEdit(const Services& services) : services_(services) {}

    void Undo() { services_.history.UndoEdit(services_.document); }
    void Redo() { services_.history.RedoEdit(services_.document); }
    /// Takes the selection out by setting the whole text anew.
    void Cut();
    /// Says so in a box if nothing is selected.
    void Copy();
    /// Puts the clipboard's text in at the caret. A selection stays; the caret goes to the start. Nothing
    /// happens when no text comes.
    void Paste();
    void Delete() { services_.document.Clear(); }
    void Clear() { services_.document.SetText(u""); }
    void SelectAll();
    void SelectionTo(LetterCase letterCase);
    void AllTextTo(LetterCase letterCase);
    /// By 13 mm, for the paragraphs of the selection; never below 0.
    void Indent();
    void Outdent();

private:
    Services services_;
};

/// The letters of Windows-1251, Latin and Cyrillic, in the other case; every other character as it is.
std::u16string ToCase(std::u16string_view text, LetterCase letterCase);

} // namespace quillshift
