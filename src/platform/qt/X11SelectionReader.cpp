// On its own because the X library's header takes words such as "None" for itself.

#include "platform/qt/X11SelectionReader.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <array>
#include <poll.h>
#include <utility>

namespace quillshift {
namespace {

constexpr auto kPatience = std::chrono::milliseconds(500); // with an owner that sends nothing
constexpr auto kLongestWait = std::chrono::seconds(1);
constexpr long kWholeProperty = 0x1FFFFFFF; // in units of four bytes

} // namespace

void X11SelectionReader::Closer::operator()(_XDisplay* display) const {
    XCloseDisplay(display);
}

X11SelectionReader::X11SelectionReader(_XDisplay* display) : display_(XOpenDisplay(DisplayString(display))) {
    if (!display_)
        return;
    const auto atom = [this](const char* name) { return XInternAtom(display_.get(), name, False); };
    atoms_ = {.clipboard = atom("CLIPBOARD"),
              .incremental = atom("INCR"),
              .property = atom("QUILLSHIFT_CLIPBOARD"),
              .targets = {atom("UTF8_STRING"), atom("text/plain;charset=utf-8"), XA_STRING}};
}

X11SelectionReader::~X11SelectionReader() = default;

int X11SelectionReader::Descriptor() const {
    return ConnectionNumber(display_.get());
}

void X11SelectionReader::Ask() {
    GiveUp();
    if (XGetSelectionOwner(display_.get(), atoms_.clipboard) == None)
        return;
    target_ = 0;
    Request();
    Advance(); // sends it; what is read on that occasion makes the connection readable for nobody
}

void X11SelectionReader::Request() {
    GiveUp();
    window_ = XCreateSimpleWindow(display_.get(), DefaultRootWindow(display_.get()), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(display_.get(), window_, PropertyChangeMask);
    progress_ = Clock::now();
    XConvertSelection(display_.get(), atoms_.clipboard, atoms_.targets[target_], atoms_.property, window_,
                      CurrentTime);
}

// An owner in the middle of an answer notices that the window has gone.
void X11SelectionReader::GiveUp() {
    if (window_ != 0)
        XDestroyWindow(display_.get(), window_);
    window_ = 0;
    incremental_ = false;
    pieces_ = {};
}

void X11SelectionReader::Forget() {
    GiveUp();
    XFlush(display_.get());
    last_ = {};
}

void X11SelectionReader::Advance() {
    while (XPending(display_.get()) > 0) {
        XEvent event;
        XNextEvent(display_.get(), &event);
        if (event.xany.window != window_)
            continue; // of a question that was given up
        progress_ = Clock::now();
        const bool refused = event.type == SelectionNotify && event.xselection.property == None;
        const bool piece =
            event.type == PropertyNotify && incremental_ && event.xproperty.state == PropertyNewValue;
        if (refused)
            Refuse();
        else if (event.type == SelectionNotify || piece)
            TakeProperty();
    }
}

// The owner has no text of the form that was asked for.
void X11SelectionReader::Refuse() {
    if (++target_ < atoms_.targets.size())
        Request();
    else
        Finish({});
}

bool X11SelectionReader::IsText(unsigned long type) const {
    return std::ranges::find(atoms_.targets, type) != atoms_.targets.end();
}

// Taking it away tells an owner that sends in pieces to send the next; the last one is empty.
void X11SelectionReader::TakeProperty() {
    ::Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display_.get(), window_, atoms_.property, 0, kWholeProperty, True, AnyPropertyType,
                       &type, &format, &count, &left, &data);
    const bool begins = type == atoms_.incremental && !incremental_;
    incremental_ = incremental_ || begins;
    if (!begins && format == 8)
        pieces_.append(reinterpret_cast<const char*>(data), count);
    if (data != nullptr)
        XFree(data);
    if (begins)
        return;
    if (!IsText(type))
        Refuse(); // there are owners that give what they have, whatever the form they are asked for
    else if (!incremental_ || count == 0)
        Finish({.bytes = std::move(pieces_), .utf8 = type != XA_STRING});
}

void X11SelectionReader::Finish(Answer answer) {
    last_ = std::move(answer);
    GiveUp();
    if (OnAnswer)
        OnAnswer();
}

bool X11SelectionReader::WaitForAnswer() {
    const auto longest = Clock::now() + kLongestWait;
    for (Advance(); window_ != 0; Advance()) {
        const auto left = std::min(longest, progress_ + kPatience) - Clock::now();
        if (left <= Clock::duration::zero())
            return false;
        pollfd answer{Descriptor(), POLLIN, 0};
        poll(&answer, 1, static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(left).count()));
    }
    return true;
}

} // namespace quillshift
