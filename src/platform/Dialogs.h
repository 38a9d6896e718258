#pragma once

namespace quillshift {

/// The program's own dialogs.
enum class DialogKind {
    Decode,     ///< picks a pair of character sets
    Decoding,   ///< the progress of a recoding job
    FullScreen, ///< the text on the whole screen
    Splash,
    Welcome,
    WorkBegin, ///< asks what to begin with
    Recovery,  ///< the unsaved texts of copies that did not end in order
    Lock,      ///< stands in the place of the locked program
    Find,
    Replace,
    GoTo, ///< asks for a line's number
    InsertTimeAndDate,
    DocumentProperties,
    Printing,         ///< asks for paper before a document is printed
    Settings,         ///< argument: the page that is shown beside the main window; 0: all of them, modal
    ToolBarCustomize, ///< chooses what the toolbars show
    About,
    License,
};

/// Shows and closes the program's dialogs, one of each kind.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Makes the dialog if it is not loaded, and leaves it hidden. For one that stays loaded.
    virtual void Load(DialogKind kind) = 0;
    /// Makes the dialog if it is not loaded, and shows it. A modal one is gone again when this returns.
    virtual void Show(DialogKind kind, int argument = 0) = 0;
    /// Closes and unloads it; nothing happens to one that is not loaded.
    virtual void Close(DialogKind kind) = 0;
    virtual bool IsLoaded(DialogKind kind) const = 0;

    /// Takes every window but the main one off the screen. Modal ones, boxes and file dialogs among them, are
    /// cancelled.
    virtual void HideAll() = 0;
    /// Those that are still loaded come back where they were.
    virtual void BringBack() = 0;
};

} // namespace quillshift
