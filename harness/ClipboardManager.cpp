#include "harness/ClipboardManager.h"

#include <X11/Xutil.h>
#include <unistd.h>

namespace quillshift::e2e {

ClipboardManager::ClipboardManager(const Desktop& desktop)
    : display_(XOpenDisplay(desktop.ProgramEnvironment("").at("DISPLAY").c_str()), XCloseDisplay),
      window_(XCreateSimpleWindow(display_.get(), DefaultRootWindow(display_.get()), 0, 0, 1, 1, 0, 0, 0)) {
    XSetSelectionOwner(display_.get(), AtomOf("CLIPBOARD_MANAGER"), window_, CurrentTime);
    XSync(display_.get(), False);
}

void ClipboardManager::ServeWhile(const std::function<bool()>& condition) {
    for (; condition(); usleep(10'000))
        while (XPending(display_.get()) > 0) {
            XEvent event;
            XNextEvent(display_.get(), &event);
            Handle(event);
        }
}

unsigned long ClipboardManager::AtomOf(const char* name) const {
    return XInternAtom(display_.get(), name, False);
}

// The program that asked may end as soon as it is told that its text is kept.
void ClipboardManager::Handle(XEvent& event) {
    _XDisplay* const display = display_.get();
    const XSelectionRequestEvent& request = event.xselectionrequest;
    if (event.type == SelectionNotify) {
        XTextProperty kept{};
        XGetTextProperty(display, window_, &kept, AtomOf("TEXT"));
        text_.assign(reinterpret_cast<const char*>(kept.value), kept.nitems);
        XFree(kept.value);
        XSetSelectionOwner(display, AtomOf("CLIPBOARD"), window_, CurrentTime);
        Answer(*asked_, None);
    } else if (event.type == SelectionRequest && request.target == AtomOf("SAVE_TARGETS")) {
        asked_ = std::make_shared<XEvent>(event);
        XConvertSelection(display, AtomOf("CLIPBOARD"), AtomOf("UTF8_STRING"), AtomOf("TEXT"), window_,
                          CurrentTime);
    } else if (event.type == SelectionRequest) {
        const bool isText = request.target == AtomOf("UTF8_STRING");
        if (isText)
            XChangeProperty(display, request.requestor, request.property, request.target, 8, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(text_.data()),
                            static_cast<int>(text_.size()));
        Answer(event, isText ? request.property : None);
    }
}

void ClipboardManager::Answer(XEvent request, unsigned long property) const {
    const XSelectionRequestEvent asked = request.xselectionrequest;
    XEvent answer{};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = asked.requestor;
    answer.xselection.selection = asked.selection;
    answer.xselection.target = asked.target;
    answer.xselection.property = property;
    answer.xselection.time = asked.time;
    XSendEvent(display_.get(), asked.requestor, False, NoEventMask, &answer);
    XFlush(display_.get());
}

} // namespace quillshift::e2e
