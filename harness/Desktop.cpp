#include "harness/Desktop.h"

#include "base/Utf8.h"
#include "harness/Iconv.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <thread>
#include <unistd.h>
#include <utility>

namespace quillshift::e2e {
namespace {

constexpr auto kPatience = std::chrono::seconds(30);
// In whose name the window manager is asked for something.
constexpr long kUser = 2;
constexpr auto kNap = std::chrono::milliseconds(2);

// Windows come and go while we look at them; a question about one that has gone has no answer.
int IgnoreError(::Display* /*display*/, XErrorEvent* /*error*/) {
    return 0;
}

KeySym KeyOf(std::string_view name) {
    if (name == "Ctrl")
        return XK_Control_L;
    if (name == "Shift")
        return XK_Shift_L;
    if (name == "Alt")
        return XK_Alt_L;
    const KeySym key = XStringToKeysym(std::string(name).c_str());
    if (key == NoSymbol)
        throw std::runtime_error("no key " + std::string(name));
    return key;
}

// The keys of Russian letters are numbered by their place in KOI-8.
KeySym KeyOf(char16_t character) {
    constexpr KeySym kCyrillicKeys = 0x600;
    if (character < 0x80)
        return character;
    const std::string koi = Iconv(ToUtf8({&character, 1}), "UTF-8", "KOI8-R");
    return kCyrillicKeys | static_cast<unsigned char>(koi.front());
}

void Nap() {
    std::this_thread::sleep_for(kNap);
}

} // namespace

// --- Setting up

Desktop::Desktop(Size size, int density) : density_(density) {
    XSetErrorHandler(IgnoreError);
    StartServer(size);
    display_ = XOpenDisplay(displayName_.c_str());
    if (display_ == nullptr)
        throw std::runtime_error("can't reach the X server " + displayName_);
    SetKeyboardLayouts();
    StartWindowManager();
}

Desktop::~Desktop() {
    windowManager_.reset();
    XCloseDisplay(display_);
    server_.reset();
}

// The server picks a free display number and tells it when it is ready for programs.
void Desktop::StartServer(Size size) {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe for the X server");
    fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    const std::string screen = std::to_string(size.width) + "x" + std::to_string(size.height) + "x24";
    server_ =
        std::make_unique<Process>("Xvfb",
                                  std::vector<std::string>{"-displayfd", std::to_string(ends[1]), "-screen",
                                                           "0", screen, "-nolisten", "tcp", "-noreset"},
                                  HomeEnvironment(home_.Path()));
    close(ends[1]);
    std::string number;
    pollfd ready{ends[0], POLLIN, 0};
    char digit = 0;
    while (poll(&ready, 1, 30000) == 1 && read(ends[0], &digit, 1) == 1 && digit != '\n')
        number += digit;
    close(ends[0]);
    if (number.empty())
        throw std::runtime_error("the X server does not start");
    displayName_ = ":" + number;
}

void Desktop::StartWindowManager() {
    // Its own menu of the desktop starts other programs, and ends it.
    const std::filesystem::path menu = home_ / "config/openbox/menu.xml";
    std::filesystem::create_directories(menu.parent_path());
    Put(menu, "<openbox_menu xmlns=\"http://openbox.org/3.4/menu\"><menu id=\"root-menu\" "
              "label=\"\"/></openbox_menu>");
    windowManager_ = std::make_unique<Process>("openbox", std::vector<std::string>{"--sm-disable"},
                                               ProgramEnvironment(home_.Path()));
    WaitUntil("the window manager runs",
              [this] { return !Property(DefaultRootWindow(display_), "_NET_SUPPORTING_WM_CHECK").empty(); });
    // It tells so before it is ready, and forgets a window that comes in between until something else
    // happens.
    WaitUntilQuiet({server_.get(), windowManager_.get()});
}

void Desktop::KeepWindowManager() {
    if (windowManager_->ExitCode())
        RenewWindowManager();
}

void Desktop::RenewWindowManager() {
    windowManager_.reset(); // there can be one only
    StartWindowManager();
}

void Desktop::SetKeyboardLayouts() {
    Process layouts("setxkbmap", {"-layout", "us,ru"}, ProgramEnvironment(home_.Path()));
    if (layouts.WaitForEnd() != 0)
        throw std::runtime_error("can't set the keyboard layouts");
}

Environment Desktop::ProgramEnvironment(const std::string& home) const {
    Environment environment = HomeEnvironment(home);
    environment["DISPLAY"] = displayName_;
    environment["QT_QPA_PLATFORM"] = "xcb";
    if (density_ != 1)
        environment["QT_SCALE_FACTOR"] = std::to_string(density_);
    return environment;
}

// --- Hands

void Desktop::Send(unsigned code, bool down) const {
    XTestFakeKeyEvent(display_, code, down ? True : False, CurrentTime);
    XSync(display_, False);
}

void Desktop::Press(std::string_view chords) {
    while (!chords.empty()) {
        const std::string_view chord = chords.substr(0, chords.find(' '));
        PressOne(chord);
        chords.remove_prefix(std::min(chord.size() + 1, chords.size()));
    }
}

void Desktop::PressOne(std::string_view chord) const {
    std::vector<unsigned> codes;
    while (!chord.empty()) {
        const auto plus = chord.find('+', 1);
        codes.push_back(XKeysymToKeycode(display_, KeyOf(chord.substr(0, plus))));
        chord = plus == std::string_view::npos ? "" : chord.substr(plus + 1);
    }
    for (const unsigned code : codes)
        Send(code, true);
    std::reverse(codes.begin(), codes.end());
    for (const unsigned code : codes)
        Send(code, false);
}

void Desktop::Type(std::u16string_view text) {
    const unsigned shift = XKeysymToKeycode(display_, XK_Shift_L);
    int minimum = 0;
    int maximum = 0;
    XDisplayKeycodes(display_, &minimum, &maximum);
    for (const char16_t character : text) {
        const KeySym wanted = KeyOf(character);
        bool found = false;
        for (int code = minimum; code <= maximum && !found; ++code)
            for (unsigned place = 0; place < 4 && !found; ++place) {
                const unsigned layout = place / 2;
                const unsigned level = place % 2;
                if (XkbKeycodeToKeysym(display_, static_cast<KeyCode>(code), static_cast<int>(layout),
                                       static_cast<int>(level)) != wanted)
                    continue;
                found = true;
                XkbLockGroup(display_, XkbUseCoreKbd, layout);
                if (level == 1)
                    Send(shift, true);
                Send(static_cast<unsigned>(code), true);
                Send(static_cast<unsigned>(code), false);
                if (level == 1)
                    Send(shift, false);
            }
        if (!found)
            throw std::runtime_error("no key for character " + std::to_string(character));
    }
    XkbLockGroup(display_, XkbUseCoreKbd, 0);
    XSync(display_, False);
}

void Desktop::UseLayout(unsigned number) {
    XkbLockGroup(display_, XkbUseCoreKbd, number);
    XSync(display_, False);
}

void Desktop::MoveTo(Point place) {
    XTestFakeMotionEvent(display_, -1, place.x, place.y, CurrentTime);
    XSync(display_, False);
}

void Desktop::HoldButton(Point place, int button) {
    MoveTo(place);
    XTestFakeButtonEvent(display_, static_cast<unsigned>(button), True, CurrentTime);
    XSync(display_, False);
}

void Desktop::ReleaseButton(int button) {
    XTestFakeButtonEvent(display_, static_cast<unsigned>(button), False, CurrentTime);
    XSync(display_, False);
}

void Desktop::Click(Point place, int button) {
    HoldButton(place, button);
    ReleaseButton(button);
}

void Desktop::AskWindowManager(XWindow window, const char* message, long first, long second) const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = Atom(message);
    event.xclient.format = 32;
    event.xclient.data.l[0] = first;
    event.xclient.data.l[1] = second;
    XSendEvent(display_, DefaultRootWindow(display_), False,
               SubstructureNotifyMask | SubstructureRedirectMask, &event);
    XSync(display_, False);
}

void Desktop::AskToClose(XWindow window) {
    AskWindowManager(window, "_NET_CLOSE_WINDOW", CurrentTime, kUser);
}

void Desktop::Activate(XWindow window) {
    AskWindowManager(window, "_NET_ACTIVE_WINDOW", kUser, CurrentTime);
}

void Desktop::Minimise(XWindow window) {
    XIconifyWindow(display_, window, DefaultScreen(display_));
    XSync(display_, False);
}

void Desktop::Maximise(XWindow window) {
    constexpr long kAdd = 1;
    for (const char* direction : {"_NET_WM_STATE_MAXIMIZED_HORZ", "_NET_WM_STATE_MAXIMIZED_VERT"})
        AskWindowManager(window, "_NET_WM_STATE", kAdd, static_cast<long>(Atom(direction)));
}

void Desktop::HoldClipboard() {
    const XWindow owner = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(display_, Atom("CLIPBOARD"), owner, CurrentTime);
    XSync(display_, False);
}

// One setting, a number: in the order of bytes, with the number of the change before both.
void Desktop::TellDensity(int dotsPerInch) {
    if (settings_ == 0) {
        settings_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display_, Atom("_XSETTINGS_S0"), settings_, CurrentTime);
    }
    ++settingsChanges_;
    std::string told;
    const auto add = [&told](std::uint32_t number) {
        for (int byte = 0; byte < 4; ++byte)
            told += static_cast<char>(number >> 8 * byte & 0xFF);
    };
    add(0); // the low byte comes first
    add(settingsChanges_);
    add(1);
    add(7U << 16); // a number, with a name of so many letters
    told += std::string("Xft/DPI") + '\0';
    add(settingsChanges_);
    add(static_cast<std::uint32_t>(dotsPerInch) * 1024);
    const unsigned long name = Atom("_XSETTINGS_SETTINGS");
    XChangeProperty(display_, settings_, name, name, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(told.data()), static_cast<int>(told.size()));
    XSync(display_, False);
}

void Desktop::CutOff(XWindow window) {
    XKillClient(display_, window);
    XSync(display_, False);
}

void Desktop::ClickOnPanel(Point place) {
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    attributes.event_mask = ButtonPressMask;
    const XWindow panel = XCreateWindow(display_, DefaultRootWindow(display_), place.x, place.y, 1, 1, 0, 0,
                                        InputOnly, nullptr, CWOverrideRedirect | CWEventMask, &attributes);
    XMapWindow(display_, panel);
    Click(place);
    XDestroyWindow(display_, panel);
    XSync(display_, False);
}

void Desktop::EmptyClipboard() {
    XSetSelectionOwner(display_, Atom("CLIPBOARD"), 0, CurrentTime);
    XSync(display_, False);
}

void Desktop::Resize(XWindow window, Size client) {
    XResizeWindow(display_, window, static_cast<unsigned>(client.width),
                  static_cast<unsigned>(client.height));
    XSync(display_, False);
}

void Desktop::Move(XWindow window, Point place) {
    XMoveWindow(display_, window, place.x, place.y);
    XSync(display_, False);
}

// --- Eyes

unsigned long Desktop::Atom(const char* name) const {
    return XInternAtom(display_, name, False);
}

std::vector<unsigned long> Desktop::Property(XWindow window, const char* name) const {
    ::Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    std::vector<unsigned long> values;
    if (XGetWindowProperty(display_, window, Atom(name), 0, 4096, False, AnyPropertyType, &type, &format,
                           &count, &left, &data) != Success)
        return values;
    for (unsigned long i = 0; i < count; ++i)
        values.push_back(format == 32 ? reinterpret_cast<unsigned long*>(data)[i] : data[i]);
    if (data != nullptr)
        XFree(data);
    return values;
}

std::vector<XWindow> Desktop::Windows() const {
    return Property(DefaultRootWindow(display_), "_NET_CLIENT_LIST");
}

std::u16string Desktop::Title(XWindow window) const {
    std::string bytes;
    for (const unsigned long byte : Property(window, "_NET_WM_NAME"))
        bytes += static_cast<char>(byte);
    return FromUtf8(bytes);
}

XWindow Desktop::Find(std::u16string_view title) const {
    for (const XWindow window : Windows())
        if (Title(window) == title)
            return window;
    return 0;
}

XWindow Desktop::Active() const {
    XWindow focus = 0;
    int revert = 0;
    XGetInputFocus(display_, &focus, &revert);
    const auto active = Property(DefaultRootWindow(display_), "_NET_ACTIVE_WINDOW");
    return active.empty() || active.front() != focus ? 0 : focus;
}

Rect Desktop::Place(XWindow window) const {
    XWindowAttributes attributes{};
    XGetWindowAttributes(display_, window, &attributes);
    int x = 0;
    int y = 0;
    XWindow child = 0;
    XTranslateCoordinates(display_, window, DefaultRootWindow(display_), 0, 0, &x, &y, &child);
    return RectAt(x, y, attributes.width, attributes.height);
}

XWindow Desktop::ClipboardOwner() const {
    return XGetSelectionOwner(display_, Atom("CLIPBOARD"));
}

bool Desktop::Lists(XWindow window, const char* property, const char* atom) const {
    const auto listed = Property(window, property);
    return std::find(listed.begin(), listed.end(), Atom(atom)) != listed.end();
}

bool Desktop::IsDialog(XWindow window) const {
    return Lists(window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DIALOG");
}

bool Desktop::IsAboveOthers(XWindow window) const {
    return Lists(window, "_NET_WM_STATE", "_NET_WM_STATE_ABOVE");
}

std::vector<Rect> Desktop::Popups() const {
    std::vector<Rect> places;
    XWindow root = 0;
    XWindow parent = 0;
    XWindow* children = nullptr;
    unsigned count = 0;
    XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count);
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes attributes{};
        const bool known = XGetWindowAttributes(display_, children[i], &attributes) != 0;
        // The window manager has small helper windows outside the screen.
        if (known && attributes.override_redirect == True && attributes.map_state == IsViewable &&
            attributes.x >= 0 && attributes.width > 1)
            places.push_back(RectAt(attributes.x, attributes.y, attributes.width, attributes.height));
    }
    if (children != nullptr)
        XFree(children);
    return places;
}

std::vector<std::uint32_t> Desktop::Pixels(const Rect& area) const {
    XImage* image = XGetImage(display_, DefaultRootWindow(display_), area.left, area.top,
                              static_cast<unsigned>(area.Width()), static_cast<unsigned>(area.Height()),
                              AllPlanes, ZPixmap);
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < area.Height(); ++y)
        for (int x = 0; x < area.Width(); ++x)
            pixels.push_back(static_cast<std::uint32_t>(XGetPixel(image, x, y) & 0xFFFFFFU));
    XDestroyImage(image);
    return pixels;
}

std::vector<std::uint32_t> Desktop::StillPixels(const Rect& area) const {
    std::vector<std::uint32_t> pixels;
    int still = 0;
    WaitUntil("the screen is still", [&] {
        still = std::exchange(pixels, Pixels(area)) == pixels ? still + 1 : 0;
        return still == 20;
    });
    return pixels;
}

void Desktop::TakePicture(const std::filesystem::path& file, XWindow window) const {
    const std::string shown = window == 0 ? "root" : std::to_string(window);
    Process("import", {"-frame", "-window", shown, file}, ProgramEnvironment(home_.Path())).WaitForEnd();
}

// --- Waiting

void Desktop::WaitUntil(const std::string& what, const std::function<bool()>& condition) const {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            if (const char* file = std::getenv("QUILLSHIFT_FAILURE_PICTURE"))
                TakePicture(file);
            throw std::runtime_error("waited in vain until " + what);
        }
        Nap();
    }
}

XWindow Desktop::WaitForWindow(std::u16string_view title) const {
    XWindow window = 0;
    WaitUntil("\"" + ToUtf8(title) + "\" has the keyboard", [&] {
        window = Active();
        return window != 0 && Title(window) == title;
    });
    return window;
}

void Desktop::WaitUntilGone(std::u16string_view title) const {
    WaitUntil("\"" + ToUtf8(title) + "\" is gone", [&] { return Find(title) == 0; });
}

void Desktop::WaitUntilQuiet(const Process& program) const {
    WaitUntilQuiet({server_.get(), windowManager_.get(), &program});
}

void Desktop::WaitUntilQuiet(const std::vector<const Process*>& programs) const {
    const auto work = [&] {
        std::vector<Process::WorkDone> done(programs.size());
        std::ranges::transform(programs, done.begin(), &Process::Work);
        return done;
    };
    WaitUntil("everything is quiet", [&] {
        const auto before = work();
        Nap();
        const auto now = work();
        return now == before && std::ranges::all_of(now, &Process::WorkDone::sleeps);
    });
}

} // namespace quillshift::e2e
