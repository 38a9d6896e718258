#include "Owner.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <poll.h>
#include <utility>
#include <vector>

namespace quillshift::attack {
namespace {

constexpr std::size_t kPiece = 256U << 10U;
constexpr std::size_t kDrop = 4096;
constexpr int kFlood = 256;
constexpr std::size_t kTargets = 60000;

bool SendsInPieces(Manner manner) {
    return manner == Manner::Stalled || manner == Manner::Dripping || manner == Manner::Endless ||
           manner == Manner::Flooding || manner == Manner::Dying;
}

} // namespace

Owner::Owner(const std::string& display, const char* selection, Manner manner, std::string text)
    : display_(XOpenDisplay(display.c_str())),
      selection_(AtomOf(selection)),
      manner_(manner),
      text_(std::move(text)) {
    Take();
    thread_ = std::thread([this] { Run(); });
}

Owner::~Owner() {
    ends_ = true;
    thread_.join();
    if (!dead_)
        XCloseDisplay(display_);
}

unsigned long Owner::AtomOf(const char* name) const {
    return XInternAtom(display_, name, False);
}

void Owner::Take() {
    const unsigned long before = window_;
    window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(display_, selection_, window_, CurrentTime);
    if (before != 0 && manner_ == Manner::ChangingHands)
        XDestroyWindow(display_, before);
    XSync(display_, False);
}

void Owner::Run() {
    while (!ends_ && !dead_) {
        while (!dead_ && XPending(display_) > 0) {
            XEvent event;
            XNextEvent(display_, &event);
            Handle(event);
        }
        if (!dead_)
            Act();
        if (dead_)
            return;
        XFlush(display_);
        pollfd arrival{ConnectionNumber(display_), POLLIN, 0};
        poll(&arrival, 1, manner_ == Manner::Flooding ? 0 : 1);
    }
}

void Owner::Handle(const XEvent& event) {
    if (event.type == SelectionRequest && event.xselectionrequest.owner == window_) {
        ++questions_;
        Answer(event);
    } else if (event.type == PropertyNotify && event.xproperty.state == PropertyDelete &&
               event.xproperty.window == requestor_ && event.xproperty.atom == property_) {
        if (manner_ == Manner::Endless || manner_ == Manner::Stalled)
            Send(kPiece, PropModeReplace);
        if (manner_ == Manner::Dripping)
            Send(1, PropModeReplace);
        if (manner_ == Manner::Stalled)
            requestor_ = 0;
    }
}

void Owner::Act() {
    if (manner_ == Manner::ChangingHands)
        Take();
    if (manner_ == Manner::Flooding && requestor_ != 0)
        for (int i = 0; i < kFlood; ++i)
            Send(kDrop, PropModeAppend);
}

void Owner::Answer(const XEvent& event) {
    const XSelectionRequestEvent& request = event.xselectionrequest;
    const auto answer = [&](unsigned long type, int format, const void* data, std::size_t count) {
        XChangeProperty(display_, request.requestor, request.property, type, format, PropModeReplace,
                        static_cast<const unsigned char*>(data), static_cast<int>(count));
        Notify(event, request.property);
    };
    if (manner_ == Manner::Silent || manner_ == Manner::ChangingHands)
        return;
    if (SendsInPieces(manner_))
        return Announce(event);
    if (request.target == AtomOf("TARGETS") && manner_ == Manner::Honest) {
        std::vector<unsigned long> targets(kTargets, request.target);
        targets.back() = AtomOf("UTF8_STRING");
        return answer(XA_ATOM, 32, targets.data(), targets.size());
    }
    const std::vector<unsigned long> numbers(10, 1);
    if (manner_ == Manner::WrongType)
        answer(XA_PIXMAP, 32, numbers.data(), 1);
    else if (manner_ == Manner::WrongFormat)
        answer(request.target, 32, numbers.data(), numbers.size());
    else if (manner_ == Manner::Refusing || (request.target != AtomOf("UTF8_STRING") &&
                                             request.target != AtomOf("text/plain;charset=utf-8")))
        Notify(event, None);
    else
        answer(request.target, 8, text_.data(), text_.size());
    if (manner_ == Manner::HandingOver) {
        manner_ = Manner::Silent;
        Take();
    }
}

void Owner::Announce(const XEvent& event) {
    const XSelectionRequestEvent& request = event.xselectionrequest;
    requestor_ = request.requestor;
    property_ = request.property;
    XSelectInput(display_, requestor_, PropertyChangeMask);
    const long size = 1;
    XChangeProperty(display_, requestor_, property_, AtomOf("INCR"), 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(&size), 1);
    Notify(event, property_);
    if (manner_ != Manner::Dying)
        return;
    XCloseDisplay(display_);
    dead_ = true;
}

void Owner::Notify(const XEvent& event, unsigned long property) {
    XEvent answer{};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = event.xselectionrequest.requestor;
    answer.xselection.selection = event.xselectionrequest.selection;
    answer.xselection.target = event.xselectionrequest.target;
    answer.xselection.time = event.xselectionrequest.time;
    answer.xselection.property = property;
    XSendEvent(display_, answer.xselection.requestor, False, NoEventMask, &answer);
    XFlush(display_);
}

void Owner::Send(std::size_t bytes, int mode) {
    const std::vector<unsigned char> piece(bytes, 'x');
    XChangeProperty(display_, requestor_, property_, AtomOf("UTF8_STRING"), 8, mode, piece.data(),
                    static_cast<int>(piece.size()));
}

} // namespace quillshift::attack
