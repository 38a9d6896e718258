#include "Drag.h"

#include <X11/Xlib.h>

#include <array>
#include <chrono>
#include <poll.h>

namespace quillshift::attack {
namespace {

constexpr long kVersion = 5L << 24;

struct Dragging {
    ::Display* display;
    unsigned long source, window;

    unsigned long AtomOf(const char* name) const { return XInternAtom(display, name, False); }
    long Number(const char* name) const { return static_cast<long>(AtomOf(name)); }
    void Tell(const char* message, const std::array<long, 4>& rest) const {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = AtomOf(message);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(source);
        for (std::size_t i = 0; i < rest.size(); ++i)
            event.xclient.data.l[i + 1] = rest[i];
        XSendEvent(display, window, False, NoEventMask, &event);
        XFlush(display);
    }
    void WaitFor(const char* message, int seconds) const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        while (std::chrono::steady_clock::now() < end) {
            while (XPending(display) > 0) {
                XEvent event;
                XNextEvent(display, &event);
                if (event.type == ClientMessage && event.xclient.message_type == AtomOf(message))
                    return;
            }
            pollfd arrival{ConnectionNumber(display), POLLIN, 0};
            poll(&arrival, 1, 10);
        }
    }
};

} // namespace

void DragAndDrop(const std::string& displayName, unsigned long window, int seconds) {
    ::Display* display = XOpenDisplay(displayName.c_str());
    const unsigned long source =
        XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
    const Dragging drag{display, source, window};
    int x = 0;
    int y = 0;
    unsigned long child = 0;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 150, 200, &x, &y, &child);
    drag.Tell("XdndEnter", {kVersion, drag.Number("text/plain;charset=utf-8"), drag.Number("text/plain"), 0});
    drag.Tell("XdndPosition",
              {0, (static_cast<long>(x) << 16) | y, CurrentTime, drag.Number("XdndActionCopy")});
    drag.WaitFor("XdndStatus", seconds);
    drag.Tell("XdndDrop", {0, CurrentTime, 0, 0});
    drag.WaitFor("XdndFinished", seconds);
    XCloseDisplay(display);
}

} // namespace quillshift::attack
