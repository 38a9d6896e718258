#pragma once

namespace quillshift {

/// What a person can tell the program to do. Where menu and toolbar do the same they name one command.
enum class Command {
    None,
    New,
    Open,
    Reopen,
    Save,
    SaveOrSaveAs, ///< plain save where it is offered, else under a name
    SaveAs,
    Print,
    ImportRtf,
    ShowProperties,
    Exit,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    Delete,
    SelectAll,
    Clear,
    Find,
    FindNext,
    Replace,
    GoTo,
    KeepOnTop,
    ShowBar, ///< argument: 1 the standard toolbar, 2 the recoding toolbar
    CustomizeToolbars,
    FullScreen,
    InsertTimeAndDate,
    InsertTextFile,
    TextToCase, ///< argument: a `LetterCase`
    SelectionToCase,
    Outdent,
    Indent,
    ShowSettings, ///< argument: the one tab to show, 0 for all of them
    Lock,
    Recode,          ///< argument: number of a direction, 0 to 19
    ChoosePair,      ///< by the recoding dialog
    ChooseDirection, ///< by the list on the recoding toolbar
    StartDecode,
    StopDecode,
    UndoRecoding,
    RunWizard,
    ShowLicense,
    WriteToAuthor,
    VisitHomePage,
    ShowAbout,
    Count
};

/// A command with its argument.
struct Action {
    constexpr Action(Command what = Command::None, int with = 0) : command(what), argument(with) {}

    Command command;
    int argument;
};

// The tabs of the settings dialog that commands open by themselves.
inline constexpr int kViewTab = 3;
inline constexpr int kFontTab = 5;
inline constexpr int kPrintTab = 6;

} // namespace quillshift
