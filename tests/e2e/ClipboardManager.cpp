#include "e2e/ClipboardManager.h"

#include <X11/Xlib.h>

#include <poll.h>

namespace quillshift::e2e {

ClipboardManager::ClipboardManager(const Desktop& desktop)
    : display_(XOpenDisplay(desktop.ProgramEnvironment("").at("DISPLAY").c_str())),
      window_(XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0)) {
    XSetSelectionOwner(display_, AtomOf("CLIPBOARD_MANAGER"), window_, CurrentTime);
    XSync(display_, False);
    thread_ = std::thread([this] {
        while (!ends_) {
            pollfd arrival{ConnectionNumber(display_), POLLIN, 0};
            for (poll(&arrival, 1, 10); XPending(display_) > 0;) {
                XEvent event;
                XNextEvent(display_, &event);
                Handle(event);
            }
        }
    });
}

ClipboardManager::~ClipboardManager() {
    ends_ = true;
    thread_.join();
    XCloseDisplay(display_);
}

unsigned long ClipboardManager::AtomOf(const char* name) const {
    return XInternAtom(display_, name, False);
}

void ClipboardManager::Handle(const XEvent& event) {
    const XSelectionRequestEvent& request = event.xselectionrequest;
    if (event.type == SelectionNotify) {
        Keep();
    } else if (event.type == SelectionRequest && request.target == AtomOf("SAVE_TARGETS")) {
        asks_ = request.requestor;
        XConvertSelection(display_, AtomOf("CLIPBOARD"), AtomOf("UTF8_STRING"), AtomOf("TEXT"), window_,
                          CurrentTime);
    } else if (event.type == SelectionRequest && request.target == AtomOf("UTF8_STRING")) {
        XChangeProperty(display_, request.requestor, request.property, request.target, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(text_.data()), static_cast<int>(text_.size()));
        Answer(event, request.property);
    } else if (event.type == SelectionRequest) {
        Answer(event, None);
    }
}

// The program that asked may end as soon as it is told so.
void ClipboardManager::Keep() {
    ::Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display_, window_, AtomOf("TEXT"), 0, 1024, True, AnyPropertyType, &type, &format,
                       &count, &left, &data);
    text_.assign(reinterpret_cast<const char*>(data), count);
    XFree(data);
    XSetSelectionOwner(display_, AtomOf("CLIPBOARD"), window_, CurrentTime);
    XEvent request{};
    request.xselectionrequest.requestor = asks_;
    request.xselectionrequest.selection = AtomOf("CLIPBOARD_MANAGER");
    request.xselectionrequest.target = AtomOf("SAVE_TARGETS");
    Answer(request, None);
}

void ClipboardManager::Answer(const XEvent& event, unsigned long property) const {
    const XSelectionRequestEvent& request = event.xselectionrequest;
    XEvent answer{};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = request.requestor;
    answer.xselection.selection = request.selection;
    answer.xselection.target = request.target;
    answer.xselection.property = property;
    answer.xselection.time = request.time;
    XSendEvent(display_, request.requestor, False, NoEventMask, &answer);
    XFlush(display_);
}

} // namespace quillshift::e2e
