// On its own because the X library's header takes words such as "None" for itself.

#include "platform/qt/X11Presses.h"

#include <X11/Xlib.h>
#include <X11/extensions/XI2.h>
#include <X11/extensions/XI2proto.h>
#include <X11/extensions/XInput2.h>

#include <array>

namespace quillshift {
namespace {

constexpr int kEventOfExtension = 35;
constexpr unsigned kRightmost = 3; // what comes behind is the wheel

// 0 where the server has no such extension.
int InputExtension(Display* display) {
    int code = 0;
    int firstEvent = 0;
    int firstError = 0;
    return XQueryExtension(display, "XInputExtension", &code, &firstEvent, &firstError) != 0 ? code : 0;
}

} // namespace

void WatchPresses(_XDisplay* display, bool on) {
    if (InputExtension(display) == 0)
        return;
    std::array<unsigned char, XIMaskLen(XI_RawButtonPress)> bits{};
    if (on)
        XISetMask(bits.data(), XI_RawButtonPress);
    XIEventMask mask{XIAllMasterDevices, static_cast<int>(bits.size()), bits.data()};
    XISelectEvents(display, DefaultRootWindow(display), &mask, 1);
    XFlush(display);
}

bool IsWatchedPress(_XDisplay* display, const void* event) {
    const auto& raw = *static_cast<const xXIRawEvent*>(event);
    return raw.type == kEventOfExtension && raw.extension == InputExtension(display) &&
           raw.evtype == XI_RawButtonPress && raw.detail <= kRightmost;
}

std::vector<unsigned long> WindowsUnderPointer(_XDisplay* display) {
    std::vector<unsigned long> windows;
    Window window = DefaultRootWindow(display);
    while (window != 0) {
        Window root = 0;
        Window child = 0;
        int x = 0;
        int y = 0;
        unsigned state = 0;
        if (XQueryPointer(display, window, &root, &child, &x, &y, &x, &y, &state) == 0)
            break;
        if (child != 0)
            windows.push_back(child);
        window = child;
    }
    return windows;
}

} // namespace quillshift
