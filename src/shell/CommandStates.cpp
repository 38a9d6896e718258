#include "shell/CommandStates.h"

#include <array>

namespace quillshift {
namespace {

enum class Depends { Selection, Text, Undo, Redo, Clipboard, RecodeUndo, Reopen, Save };

struct CommandRule {
    std::string_view key;
    Depends on;
};

using enum Depends;
constexpr auto kRules = std::to_array<CommandRule>({
    {"MENU:EDIT:CUT", Selection},
    {"MENU:EDIT:COPY", Selection},
    {"MENU:EDIT:DELETE", Selection},
    {"MENU:FORMAT:SELTEXTCASE:CASEU", Selection},
    {"MENU:FORMAT:SELTEXTCASE:CASEL", Selection},
    {"TOOLBAR:CUT", Selection},
    {"TOOLBAR:COPY", Selection},
    {"TOOLBAR:DELETE", Selection},
    {"MENU:FILE:PRINT", Text},
    {"MENU:EDIT:UNDO", Undo},
    {"MENU:EDIT:REDO", Redo},
    {"MENU:EDIT:SELECTALL", Text},
    {"MENU:EDIT:CLEAR", Text},
    {"MENU:FIND:FIND", Text},
    {"MENU:FIND:FINDNEXT", Text},
    {"MENU:FIND:REPLACE", Text},
    {"MENU:FIND:GOTO", Text},
    {"MENU:FORMAT:ALLTEXTCASE:CASEU", Text},
    {"MENU:FORMAT:ALLTEXTCASE:CASEL", Text},
    {"TOOLBAR:UNDO", Undo},
    {"TOOLBAR:REDO", Redo},
    {"TOOLBAR:PRINT", Text},
    {"TOOLBAR:FIND", Text},
    {"TOOLBAR:REPLACE", Text},
    {"TOOLBAR:GOTO", Text},
    {"TOOLBAR:CLEAR", Text},
    {"TOOLBAR2:START", Text},
    {"TOOLBAR2:STOP", Text},
    {"TOOLBAR2:DECODE", Text},
    {"MENU:EDIT:PASTE", Clipboard},
    {"TOOLBAR:PASTE", Clipboard},
    {"MENU:DECODE:UNDO", RecodeUndo},
    {"TOOLBAR2:UNDO", RecodeUndo},
    {"MENU:FILE:REOPEN", Reopen},
    {"TOOLBAR:REOPEN", Reopen},
    {"MENU:FILE:SAVE", Save},
});

bool IsEnabled(Depends on, const CommandInputs& inputs) {
    switch (on) {
    case Selection:
        return inputs.selection;
    case Text:
        return inputs.text;
    case Undo:
        return inputs.undoSteps > 1; // the last of them is the present state
    case Redo:
        return inputs.redoSteps > 0;
    case Clipboard:
        return inputs.clipboardText;
    case RecodeUndo:
        return inputs.recodeUndo;
    case Reopen:
        return inputs.reopen;
    case Save:
        return inputs.save;
    }
    return false;
}

} // namespace

void ForEachCommandState(const CommandInputs& inputs,
                         const std::function<void(std::string_view key, bool enabled)>& set) {
    for (const auto& [key, on] : kRules)
        set(key, IsEnabled(on, inputs));
}

} // namespace quillshift
