#pragma once

#include "platform/TextSurface.h"
#include "platform/Window.h"
#include "recoding/DecodingView.h"
#include "recoding/modDecode.h"

#include <functional>
#include <string_view>

namespace quillshift {

enum class ToolBarIcons { Small, Large };

/// The main window, as the logic behind it sees it: it shows what it is told and forwards what happens.
class MainView : public Window {
public:
    virtual TextSurface& RichTextBox() = 0;
    virtual TextSurface& RichTextBoxBackup() = 0;
    virtual TextSurface& RichTextBoxImport() = 0;
    virtual DecodingView& Decoding() = 0;

    // The command bars, in the order in which they come to be.

    /// Makes the buttons and bars of the whole catalogue, with their icons.
    virtual void BuildBars() = 0;
    /// "System" and "OfficeXP" name a style; any other text leaves it.
    virtual void SetBarStyle(std::u16string_view style) = 0;
    virtual void AttachMenu() = 0;
    /// Gives bar 1 or 2 its icons and what it shows.
    virtual void AttachToolBar(int bar, ToolBarIcons icons) = 0;
    /// Extent of the menu, which wraps to further rows in a narrow window.
    virtual Twips MenuHeight() const = 0;
    /// Bar 1 is the standard toolbar, bar 2 the recoding toolbar. A bar's line goes with it.
    virtual void SetBarVisible(int bar, bool visible) = 0;
    virtual void SetChecked(std::string_view key, bool checked) = 0;
    virtual void SetEnabled(std::string_view key, bool enabled) = 0;
    virtual bool IsChecked(std::string_view key) const = 0;
    virtual void SetItemVisible(std::string_view key, bool visible) = 0;
    virtual void SetToolTip(std::string_view key, std::u16string_view text) = 0;
    /// Whether menus leave out what is rarely used.
    virtual void SetHideInfrequentlyUsed(bool on) = 0;

    /// Place in the list of directions.
    virtual int Direction() const = 0;
    virtual void SetDirection(int number) = 0;

    /// Sizes of the text area's parts, in the order in which they are set.
    struct EditorLayout {
        Twips picEditorHeight, shapeHeight, shapeWidth, surfaceHeight, surfaceWidth;
        bool operator==(const EditorLayout&) const = default;
    };
    virtual void LayOut(const EditorLayout& layout) = 0;

    /// Opens the recoding dialog and returns when it is closed.
    virtual void ShowDecodeDialog() = 0;
    /// Opens the menu "MENU:EDIT" at a point of the screen.
    virtual void ShowEditMenu(Point screen) = 0;
    virtual void Show() = 0;
    /// Asks the window to close, as its own close box does.
    virtual void Close() = 0;
};

} // namespace quillshift
