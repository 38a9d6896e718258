#include "Turns.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <fstream>
#include <poll.h>
#include <utility>

namespace quillshift::attack {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
constexpr auto kNap = std::chrono::milliseconds(1);
constexpr auto kPatience = std::chrono::seconds(30);
constexpr auto kAskAgain = std::chrono::seconds(1); // as a question is lost with a window that is made anew

// Whether a sign that answers this question or a later one comes within the time.
bool WaitForSign(::Display* display, long number, Clock::time_point end, const std::atomic<bool>& ends) {
    while (!ends && Clock::now() < end) {
        while (XPending(display) > 0) {
            XEvent event;
            XNextEvent(display, &event);
            if (event.type == ClientMessage && event.xclient.data.l[1] >= number)
                return true;
        }
        pollfd arrival{ConnectionNumber(display), POLLIN, 0};
        poll(&arrival, 1, 10);
    }
    return false;
}

} // namespace

Turns::Turns(const std::string& display, unsigned long window, std::vector<pid_t> takesPart)
    : takesPart_(std::move(takesPart)), thread_([this, display, window] { Run(display, window); }) {}

Turns::~Turns() {
    ends_ = true;
    thread_.join();
}

microseconds Turns::WithoutProcessor() const {
    long nanoseconds = 0;
    const auto add = [&](const std::string& file) {
        long ran = 0;
        long waited = 0;
        if (std::ifstream(file) >> ran >> waited)
            nanoseconds += waited;
    };
    for (const pid_t process : takesPart_) // of its first thread
        add("/proc/" + std::to_string(process) + "/schedstat");
    add("/proc/thread-self/schedstat");
    return microseconds(nanoseconds / 1000);
}

void Turns::Run(const std::string& displayName, unsigned long window) {
    ::Display* display = XOpenDisplay(displayName.c_str());
    XSelectInput(display, DefaultRootWindow(display), StructureNotifyMask); // signs are sent there
    XEvent question{};
    question.xclient.type = ClientMessage;
    question.xclient.window = window;
    question.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    question.xclient.format = 32;
    question.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "_NET_WM_PING", False));
    question.xclient.data.l[2] = static_cast<long>(window);
    long number = 0;
    const auto ask = [&] {
        question.xclient.data.l[1] = ++number;
        XSendEvent(display, window, False, NoEventMask, &question);
        XFlush(display);
    };
    for (; !ends_; std::this_thread::sleep_for(kNap)) {
        if (pauses_)
            continue;
        const auto start = Clock::now();
        const auto idle = WithoutProcessor();
        ask();
        const long first = number;
        while (!ends_ && !WaitForSign(display, first, Clock::now() + kAskAgain, ends_))
            ask();
        if (ends_)
            break;
        const auto took = std::chrono::duration_cast<microseconds>(Clock::now() - start);
        longest_ = std::max<long>(longest_, (took - (WithoutProcessor() - idle)).count());
        ++answers_;
    }
    XCloseDisplay(display);
}

microseconds Turns::TakeLongest() {
    const long before = answers_;
    const auto end = Clock::now() + kPatience;
    while (answers_ < before + 2) { // the first may have been under way
        if (Clock::now() > end) {
            longest_ = 0;
            return kPatience;
        }
        std::this_thread::sleep_for(kNap);
    }
    return microseconds(longest_.exchange(0));
}

} // namespace quillshift::attack
