#pragma once

#include "base/Geometry.h"
#include "harness/Process.h"
#include "harness/TemporaryFolder.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library calls it so

namespace quillshift::e2e {

/// A window as the X server numbers it; 0 is none.
using XWindow = unsigned long;

/// A desktop of its own: an X server without a monitor, a window manager, and the hands and eyes of a user.
/// Nothing here waits for a time; what waits, waits for a condition, and throws with its name when it does
/// not come true for half a minute. Where the variable QUILLSHIFT_FAILURE_PICTURE names a PNG file, a picture
/// of the screen is left there then.
class Desktop {
public:
    /// `density`: device pixels per logical pixel that programs are to use.
    explicit Desktop(Size size = {1280, 800}, int density = 1);
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    const Process& Server() const { return *server_; }
    /// Starts another window manager if the one that was there has died.
    void KeepWindowManager();
    /// Starts another in its stead: one in the middle of something, as a menu of its own, gives no window the
    /// keyboard.
    void RenewWindowManager();
    /// What a program needs to know to come here; its user's folders lie under `home`.
    Environment ProgramEnvironment(const std::string& home) const;

    // Hands

    /// One key after another with its modifiers, such as "Alt Down" or "Ctrl+Shift+S".
    void Press(std::string_view chords);
    /// Latin and Russian text, on a keyboard with both layouts.
    void Type(std::u16string_view text);
    /// The keyboard layout in force: 0 Latin, 1 Russian.
    void UseLayout(unsigned number);
    void MoveTo(Point place);
    /// Button 1 is the left one, 3 the right one.
    void Click(Point place, int button = 1);
    /// Clicks on a window of another program that leaves the keyboard where it is.
    void ClickOnPanel(Point place);
    void HoldButton(Point place, int button = 1);
    void ReleaseButton(int button = 1);
    /// Asks a window to close, as its close box does.
    void AskToClose(XWindow window);
    void Resize(XWindow window, Size client);
    void Move(XWindow window, Point place);
    void Minimise(XWindow window);
    void Maximise(XWindow window);
    /// Tells programs as the desktop's settings do how many dots make an inch. They listen if it was told
    /// before they started.
    void TellDensity(int dotsPerInch);
    /// Takes the clipboard, and answers nobody who asks for what is on it.
    void HoldClipboard();
    /// Empties it, as another program does.
    void EmptyClipboard();
    /// Cuts the program of a window off from the server, as its end does.
    void CutOff(XWindow window);
    /// Gives a window the keyboard, as its entry in a list of windows does; restores a minimised one.
    void Activate(XWindow window);

    // Eyes

    /// The windows the window manager knows, the oldest first.
    std::vector<XWindow> Windows() const;
    /// The first window with this title; 0 if there is none.
    XWindow Find(std::u16string_view title) const;
    /// The window that has the keyboard, by the window manager's word and the server's.
    XWindow Active() const;
    std::u16string Title(XWindow window) const;
    /// The client area on the screen, in device pixels.
    Rect Place(XWindow window) const;
    /// The window of the program that has the clipboard; 0 if none has.
    XWindow ClipboardOwner() const;
    bool IsDialog(XWindow window) const;
    bool IsAboveOthers(XWindow window) const;
    /// The windows that no window manager decorates, such as menus: where they stand on the screen.
    std::vector<Rect> Popups() const;
    /// Red, green and blue of each pixel, red in the high byte, line by line.
    std::vector<std::uint32_t> Pixels(const Rect& area) const;
    /// The same, when they stay as they are.
    std::vector<std::uint32_t> StillPixels(const Rect& area) const;
    std::uint32_t Pixel(Point place) const { return Pixels(RectAt(place.x, place.y, 1, 1)).front(); }
    /// Leaves a picture in a PNG file: of a window with its frame, or of the whole screen.
    void TakePicture(const std::filesystem::path& file, XWindow window = 0) const;

    // Waiting

    void WaitUntil(const std::string& what, const std::function<bool()>& condition) const;
    /// Waits until a window with this title is there and has the keyboard.
    XWindow WaitForWindow(std::u16string_view title) const;
    void WaitUntilGone(std::u16string_view title) const;
    /// Waits until the program, the X server and the window manager have nothing left to do.
    void WaitUntilQuiet(const Process& program) const;

private:
    void StartServer(Size size);
    void StartWindowManager();
    void SetKeyboardLayouts();
    void PressOne(std::string_view chord) const;
    void WaitUntilQuiet(const std::vector<const Process*>& programs) const;
    void Send(unsigned code, bool down) const;
    std::vector<unsigned long> Property(XWindow window, const char* name) const;
    void AskWindowManager(XWindow window, const char* message, long first, long second) const;
    bool Lists(XWindow window, const char* property, const char* atom) const;
    unsigned long Atom(const char* name) const;

    int density_;
    TemporaryFolder home_;
    std::string displayName_;
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> windowManager_;
    _XDisplay* display_ = nullptr;
    XWindow settings_ = 0;
    std::uint32_t settingsChanges_ = 0;
};

} // namespace quillshift::e2e
