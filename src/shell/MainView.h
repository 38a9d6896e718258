#pragma once

#include "platform/TextSurface.h"
#include "platform/Window.h"

#include <functional>

namespace quillshift {

class BarWindow;
class PanelControl;

/// The main window, as the logic behind it sees it: it shows what it is told and forwards what happens. It is
/// made hidden, before the program.
class MainView : public Window {
public:
    virtual TextSurface& RichTextBox() = 0;
    virtual TextSurface& RichTextBoxBackup() = 0;
    virtual TextSurface& RichTextBoxImport() = 0;
    virtual TextSurface& RtfTemp() = 0;

    /// The window of a bar: 0 the menu, 1 the standard toolbar, 2 the recoding toolbar.
    virtual BarWindow& CmdBar(int bar) = 0;
    /// Makes the window for one more popup.
    virtual BarWindow& AddPopupWindow() = 0;
    /// Shows or hides bar 1 or 2; its line goes with it.
    virtual void SetBarVisible(int bar, bool visible) = 0;
    /// Device pixels to the logical pixel, rounded up.
    virtual int Density() const = 0;

    /// The list of directions, and the place chosen in it.
    virtual PanelControl& CmbDecode() = 0;
    virtual int Direction() const = 0;
    virtual void SetDirection(int number) = 0;
    virtual void EnableDirections(bool enabled) = 0;

    /// Sizes of the text area's parts, in the order in which they are set.
    struct EditorLayout {
        Twips picEditorHeight, shapeHeight, shapeWidth, surfaceHeight, surfaceWidth;
        bool operator==(const EditorLayout&) const = default;
    };
    virtual void LayOut(const EditorLayout& layout) = 0;

    /// Has the keyboard, with no dialog and no popup over it.
    virtual bool IsFree() const = 0;
    /// Asks the window to close, as its own close box does.
    virtual void Close() = 0;

    // Notifications.
    std::function<void()> OnResize;
    std::function<void()> OnDirectionChange;
    std::function<void()> OnActivate;   ///< the keyboard has come, and no button is held any more
    std::function<void()> OnDeactivate; ///< the keyboard goes from any window of the program to another
    std::function<bool()> OnClose;      ///< answers whether the window may close
};

} // namespace quillshift
