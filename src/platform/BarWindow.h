#pragma once

#include "base/Geometry.h"
#include "platform/BarItem.h"
#include "platform/Monitor.h"
#include "platform/Surface.h"
#include "platform/WindowId.h"

#include <array>
#include <string_view>
#include <vector>

namespace quillshift {

enum class MouseButton { Left, Right, Middle };

/// What a window that hosts a command bar tells of. Points are client pixels.
class BarWindowListener {
public:
    virtual ~BarWindowListener() = default;

    /// Paints at least `part` of the client area.
    virtual void OnPaint(Surface& surface, const Rect& part) = 0;
    virtual void OnSize() = 0;
    virtual void OnMouseMove(Point at) = 0;
    virtual void OnMouseLeave() = 0;
    virtual void OnMousePress(Point at, MouseButton button) = 0;
    virtual void OnMouseRelease(Point at, MouseButton button) = 0;

    // For assistive programs

    virtual BarRole Role() const = 0;
    virtual std::u16string Title() const = 0;
    /// Whether an item of another bar has opened this one, through which it is told of.
    virtual bool IsBelowItem() const = 0;
    /// The items of the bar, or of the menu that the item at the end of the path opens, whether it is open or
    /// not. Separators are no items, nor are panels, whose controls speak for themselves.
    virtual std::vector<BarItem> ItemsBelow(const BarPath& path) = 0;
    /// Does what a click does, wherever the item stands. Nothing if it is disabled or not there.
    virtual void PressItem(const BarPath& path) = 0;
};

/// A strip of shadow: where it stands on the screen, its pixels, and an alpha on top of theirs.
struct ShadowStrip {
    Rect place;
    PixelView pixels;
    std::uint8_t constantAlpha = 255;
};

/// A window that hosts a command bar. It forwards what happens, copies out what is painted, and knows no
/// rules.
class BarWindow {
public:
    virtual ~BarWindow() = default;

    virtual void SetListener(BarWindowListener* listener) = 0;
    virtual WindowId Id() const = 0;
    virtual WindowId TopWindow() const = 0;

    virtual Size ClientSize() const = 0;
    /// Client area of the parent window, in client pixels of this one.
    virtual Rect ParentClient() const = 0;
    virtual Point ToScreen(Point client) const = 0;
    virtual Point FromScreen(Point screen) const = 0;
    virtual const TextMeasurer& Texts() const = 0;
    virtual bool RightToLeft() const = 0;

    /// Extent across the bar, which lies along a side edge if `upright`; a host may refuse it.
    virtual void SetDepth(int px, bool upright) = 0;
    virtual void Repaint(const Rect& part) = 0;
    /// Off, nothing is painted, and what is on the screen stays.
    virtual void SetPainted(bool on) = 0;
    /// The tip shown while the pointer rests on the window; empty for none.
    virtual void SetToolTip(std::u16string_view text) = 0;
    /// Assistive programs are to follow the keyboard to an item of this bar or of a menu opened from it; with
    /// an empty path back to where the keys go otherwise.
    virtual void AnnounceItem(const BarPath& path) = 0;

    /// Shows the window as a borderless one above all others that never takes the keyboard.
    virtual void ShowPopup(const Rect& screen) = 0;
    /// Hides it and its shadows.
    virtual void HidePopup() = 0;
    /// Shows strips of shadow behind the popup, in place of those before. Their pixels are copied.
    virtual void ShowShadows(const std::array<ShadowStrip, 2>& strips) = 0;
};

/// A key event on its way to a window of the process.
struct KeyEvent {
    int key = 0; ///< virtual key code; 0 for one that has none
    bool up = false;
    bool repeated = false; ///< because it is held down
    int modifiers = 0;     ///< bits of `modifier`: the keys that are held now
};

/// Sees keys and mouse events of the process before its windows do.
class InputFilter {
public:
    virtual ~InputFilter() = default;

    /// True if the key is swallowed.
    virtual bool KeyboardFilter(const KeyEvent& event) = 0;
    /// A mouse event, which always goes on to its window. `press`: a button went down, in a window's client
    /// area or its frame.
    virtual void MouseFilter(bool press) = 0;
    /// A main window was moved, minimised or blocked by a dialog, or has lost the keyboard.
    virtual void OnInterruption() = 0;
};

/// A copy of a part of the screen; empty where the system gives none.
struct ScreenCopy {
    std::vector<std::uint8_t> bits; ///< as a `PixelView` has them
    Size size;
};

/// The window system as the command bars need it.
class BarSystem {
public:
    virtual ~BarSystem() = default;

    /// The filter that gets the input of the process; null for none.
    virtual void SetInputFilter(InputFilter* filter) = 0;
    /// Has the filter get also the presses over no window of this process, as far as the window system tells
    /// of them, or no longer.
    virtual void WatchPresses(bool on) = 0;

    virtual Point PointerPosition() const = 0;
    /// The window of this process under the pointer; 0 if there is none that hosts a bar or holds one.
    virtual WindowId WindowUnderPointer() const = 0;
    /// The top-level window that has the keyboard; 0 if it is disabled, minimised or not of this process.
    virtual WindowId ForegroundWindow() const = 0;
    virtual std::vector<MonitorInfo> Monitors() const = 0;
    /// Whether windows can be translucent at present.
    virtual bool Layered() const = 0;
    virtual ScreenCopy CopyOfScreen(const Rect& part) const = 0;
};

} // namespace quillshift
