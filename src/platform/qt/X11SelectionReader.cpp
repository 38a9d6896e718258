// On its own because the X library's header takes words such as "None" for itself.

#include "platform/qt/X11SelectionReader.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>
#include <xcb/xcb.h>

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

X11SelectionReader::X11SelectionReader(_XDisplay* display, xcb_connection_t* programs)
    : display_(XOpenDisplay(DisplayString(display))) {
    int firstEvent = 0;
    int firstError = 0;
    if (display_ && XFixesQueryExtension(display_.get(), &firstEvent, &firstError) == False)
        display_.reset();
    if (!display_)
        return;
    const auto atom = [this](const char* name) { return XInternAtom(display_.get(), name, False); };
    atoms_ = {.clipboard = atom("CLIPBOARD"),
              .incremental = atom("INCR"),
              .property = atom("QUILLSHIFT_CLIPBOARD"),
              .targets = {atom("UTF8_STRING"), atom("text/plain;charset=utf-8"), XA_STRING}};
    ownerEvent_ = firstEvent + XFixesSelectionNotify;
    const xcb_setup_t* const setup = xcb_get_setup(programs);
    ownIds_ = {.base = setup->resource_id_base, .mask = setup->resource_id_mask};
    XFixesSelectSelectionInput(display_.get(), DefaultRootWindow(display_.get()), atoms_.clipboard,
                               XFixesSetSelectionOwnerNotifyMask | XFixesSelectionWindowDestroyNotifyMask |
                                   XFixesSelectionClientCloseNotifyMask);
    TakeOwner(XGetSelectionOwner(display_.get(), atoms_.clipboard));
    Advance();
}

X11SelectionReader::~X11SelectionReader() = default;

int X11SelectionReader::Descriptor() const {
    return ConnectionNumber(display_.get());
}

void X11SelectionReader::TakeOwner(unsigned long owner) {
    GiveUp();
    last_ = {};
    own_ = owner != None && (owner & ~ownIds_.mask) == ownIds_.base;
    if (owner == None || own_)
        Tell();
    else {
        target_ = 0;
        Request();
    }
}

// An owner that ends leaves what it has answered.
void X11SelectionReader::OnOwnerEvent(const _XEvent& event) {
    const auto& change = reinterpret_cast<const XFixesSelectionNotifyEvent&>(event);
    if (change.subtype == XFixesSetSelectionOwnerNotify)
        TakeOwner(change.owner);
    else if (window_ != 0)
        Finish({});
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

void X11SelectionReader::Advance() {
    while (XPending(display_.get()) > 0) {
        XEvent event;
        XNextEvent(display_.get(), &event);
        if (event.type == ownerEvent_)
            OnOwnerEvent(event);
        else if (event.xany.window == window_)
            OnAnswerEvent(event); // others are of a question that was given up
    }
}

void X11SelectionReader::OnAnswerEvent(const _XEvent& event) {
    progress_ = Clock::now();
    const bool refused = event.type == SelectionNotify && event.xselection.property == None;
    const bool piece =
        event.type == PropertyNotify && incremental_ && event.xproperty.state == PropertyNewValue;
    if (refused)
        Refuse();
    else if (event.type == SelectionNotify || piece)
        TakeProperty();
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
    // Pieces that were put on one another were taken with the first of them.
    if (begins || (incremental_ && type == None))
        return;
    if (!IsText(type) && !(incremental_ && count == 0))
        Refuse(); // there are owners that give what they have, whatever the form they are asked for
    else if (!incremental_ || count == 0)
        Finish({.bytes = std::move(pieces_), .utf8 = type != XA_STRING});
}

void X11SelectionReader::Finish(Answer answer) {
    last_ = std::move(answer);
    GiveUp();
    Tell();
}

void X11SelectionReader::Tell() const {
    if (OnChange)
        OnChange();
}

void X11SelectionReader::Sync() {
    XSync(display_.get(), False);
    Advance();
}

bool X11SelectionReader::WaitForAnswer() {
    const auto longest = Clock::now() + kLongestWait;
    for (Sync(); window_ != 0; Advance()) {
        const auto left = std::min(longest, progress_ + kPatience) - Clock::now();
        if (left <= Clock::duration::zero())
            return false;
        pollfd answer{Descriptor(), POLLIN, 0};
        poll(&answer, 1, static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(left).count()));
    }
    return true;
}

} // namespace quillshift
